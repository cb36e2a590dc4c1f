// What the hosts over real frameworks share: documents are files, and leaks are the sanitizer's to find.
#pragma once

#include <list>
#include <optional>
#include <string>

#include "model/expected_leaks.h"
#include "model/memory_file.h"

class RealProcess {
public:
    std::string file(const std::string& text) { return files_.emplace_back(text).path(); }

    // From now on, until the end of this object.
    void expectLeaks() {
        if (!leaks_) leaks_.emplace(1);
    }

private:
    std::list<model::MemoryFile> files_;
    std::optional<model::ExpectedLeaks> leaks_;
};
