#include <algorithm>
#include <atomic>
#include <mutex>
#include <thread>

#include "check/file.h"

std::vector<CheckReport> checkFiles(const std::vector<std::string>& paths, Part part, unsigned threads,
                                    void (*progress)(size_t done, size_t all)) {
    std::vector<CheckReport> reports(paths.size());
    std::atomic<size_t> next{0};
    std::mutex telling;
    size_t done = 0;
    const auto work = [&] {
        for (size_t i = next++; i < paths.size(); i = next++) {
            reports[i] = checkFile(paths[i], part);
            const std::lock_guard<std::mutex> lock(telling);
            progress(++done, paths.size());
        }
    };
    std::vector<std::thread> workers(std::min<size_t>(threads, paths.size()));
    for (std::thread& worker : workers) worker = std::thread(work);
    for (std::thread& worker : workers) worker.join();
    return reports;
}
