// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for what a file dialog answered, and for the paths that it was made of: these
// come back as they were, if they are as dialogs give them, with one "/" between folders.
#include "host/DialogText.h"
#include "playlist/AddMedia.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

using namespace tovik;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    static_cast<void>(host::filtersOf(text));
    std::vector<std::string> paths;
    playlist::splitChosen(text, [&paths](const std::string& path) { paths.push_back(path); });
    std::erase_if(paths, [](const std::string& path) {
        return !path.starts_with('/') || path.ends_with('/') ||
               path.find("//") != std::string::npos;
    });
    std::vector<std::string> again;
    playlist::splitChosen(host::chosenText(paths),
                          [&again](const std::string& path) { again.push_back(path); });
    if (again != paths) {
        std::abort();
    }
    return 0;
}
