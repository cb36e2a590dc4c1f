// What the component waits for: signals, and changes of its tuning file.
#pragma once

#include <string>

enum class Event { kDump, kChange, kStop, kError };

class Events {
public:
    // Blocks SIGUSR1, SIGTERM and SIGINT: to be made before the first thread, and before the file is read, so
    // that no change goes unseen.
    explicit Events(const char* path);
    ~Events();
    Events(const Events&) = delete;
    Events& operator=(const Events&) = delete;

    Event next();  // waits for it

private:
    bool fileChanged();

    const std::string name_;
    const int signals_;
    const int folder_;
};
