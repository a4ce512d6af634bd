// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/helper/Talk.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace tovik::visual {

std::optional<Received> receive() {
    Received received;
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> room{};
    iovec place{&received.order, sizeof received.order};
    msghdr message{};
    message.msg_iov = &place;
    message.msg_iovlen = 1;
    message.msg_control = room.data();
    message.msg_controllen = room.size();
    ssize_t size = 0;
    do {
        size = ::recvmsg(sound::kHelperSocket, &message, MSG_CMSG_CLOEXEC);
    } while (size < 0 && errno == EINTR);
    if (size < static_cast<ssize_t>(sound::kShortOrder)) {
        return std::nullopt;
    }
    if (const cmsghdr* const head = CMSG_FIRSTHDR(&message);
        head != nullptr && head->cmsg_type == SCM_RIGHTS) {
        std::memcpy(&received.descriptor, CMSG_DATA(head), sizeof received.descriptor);
    }
    return received;
}

bool tell(sound::HelperAnswerHead head, std::string_view text) {
    text = text.substr(0, sound::kLongestAnswerText);
    std::array<iovec, 2> places = {iovec{&head, sizeof head},
                                   iovec{const_cast<char*>(text.data()), text.size()}};
    msghdr message{};
    message.msg_iov = places.data();
    message.msg_iovlen = places.size();
    ssize_t sent = 0;
    do {
        sent = ::sendmsg(sound::kHelperSocket, &message, MSG_NOSIGNAL);
    } while (sent < 0 && errno == EINTR);
    return sent >= 0;
}

} // namespace tovik::visual
