// SPDX-License-Identifier: GPL-3.0-or-later
// Where the instances that share a data folder meet: a local socket. Any thread.
#pragma once

#include "base/Descriptor.h"

#include <string>

#include <sys/socket.h>
#include <sys/types.h>
#include <sys/un.h>

namespace tovik::host {

/// The path of their socket in the runtime folder. Its name is a hash of the user and the data
/// folder, however that is written.
[[nodiscard]] std::string instanceSocketPath(const std::string& runtimeFolder,
                                             const std::string& dataFolder, uid_t user);

/// The address of a socket's path, also of one that is longer than an address can hold. Keep it
/// as long as the address is used.
class LocalAddress {
public:
    explicit LocalAddress(const std::string& path);

    /// False where the folder does not exist or no form of the path fits.
    [[nodiscard]] bool valid() const { return address_.sun_path[0] != '\0'; }

    /// As `bind` and `connect`.
    [[nodiscard]] int bind(int socket) const;
    [[nodiscard]] int connect(int socket) const;

private:
    [[nodiscard]] const sockaddr* generic() const;
    bool set(const std::string& path);

    sockaddr_un address_{};
    base::Descriptor folder_;
};

/// Whether the process at the other end of a connected local socket is of this user.
[[nodiscard]] bool peerIsThisUser(int socket);

} // namespace tovik::host
