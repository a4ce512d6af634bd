// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/LocalAddress.h"

#include "base/Digest.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace tovik::host {

namespace fs = std::filesystem;

std::string instanceSocketPath(const std::string& runtimeFolder, const std::string& dataFolder,
                               uid_t user) {
    std::error_code failure;
    fs::path folder = fs::weakly_canonical(dataFolder, failure);
    if (failure) {
        folder = dataFolder;
    } else if (!folder.has_filename()) {
        folder = folder.parent_path(); // a "/" at its end
    }
    return runtimeFolder + "/tovik-" + base::digestOf(std::to_string(user) + ":" + folder.native());
}

LocalAddress::LocalAddress(const std::string& path) {
    address_.sun_family = AF_UNIX;
    if (!set(path)) {
        const fs::path whole(path);
        folder_ =
            base::Descriptor(::open(whole.parent_path().c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (folder_.open()) {
            set("/proc/self/fd/" + std::to_string(folder_.get()) + "/" + whole.filename().native());
        }
    }
}

bool LocalAddress::set(const std::string& path) {
    const bool fits = path.size() < std::size(address_.sun_path);
    if (fits) {
        std::ranges::copy(path, std::begin(address_.sun_path));
    }
    return fits;
}

const sockaddr* LocalAddress::generic() const {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): as the system wants it
    return reinterpret_cast<const sockaddr*>(&address_);
}

int LocalAddress::bind(int socket) const {
    return ::bind(socket, generic(), sizeof address_);
}

int LocalAddress::connect(int socket) const {
    return ::connect(socket, generic(), sizeof address_);
}

bool peerIsThisUser(int socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::getuid();
}

} // namespace tovik::host
