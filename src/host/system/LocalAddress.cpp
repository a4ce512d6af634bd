// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/LocalAddress.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace tovik::host {

namespace fs = std::filesystem;

namespace {

/// FNV-1a of 64 bits (Fowler, Noll, Vo).
std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char letter : text) {
        hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001B3;
    }
    return hash;
}

std::string hexadecimal(std::uint64_t number) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text(16, '0');
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, number >>= 4) {
        *digit = kDigits[number & 0xF];
    }
    return text;
}

} // namespace

std::string instanceSocketPath(const std::string& runtimeFolder, const std::string& dataFolder,
                               uid_t user) {
    std::error_code failure;
    fs::path folder = fs::weakly_canonical(dataFolder, failure);
    if (failure) {
        folder = dataFolder;
    } else if (!folder.has_filename()) {
        folder = folder.parent_path(); // a "/" at its end
    }
    return runtimeFolder + "/tovik-" +
           hexadecimal(hashOf(std::to_string(user) + ":" + folder.native()));
}

LocalAddress::LocalAddress(const std::string& path) {
    address_.sun_family = AF_UNIX;
    if (!set(path)) {
        const fs::path whole(path);
        folder_ = base::Descriptor(::open(whole.parent_path().c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
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
