// What the hosts over real frameworks share: documents are files, and leaks are the sanitizer's to find.
#pragma once

#include <string>
#include <vector>

class RealProcess {
public:
    RealProcess() = default;
    ~RealProcess();
    RealProcess(const RealProcess&) = delete;
    RealProcess& operator=(const RealProcess&) = delete;

    // In memory: a death test leaves no file behind.
    std::string file(const std::string& text);

    // From now on, until the end of this object.
    void expectLeaks();

private:
    std::vector<int> files_;
    bool leaks_ = false;
};
