// SPDX-License-Identifier: GPL-3.0-or-later
// A server whose certificate nobody vouches for.
#include "sound/net/NetRig.h"

#include <array>
#include <cstdio>

namespace tovik::sound {
namespace {

using namespace test;

/// Serves one connection after the other over TLS; its port is the first line that it prints.
constexpr const char* kServer = "import socket, ssl, sys\n"
                                "tls = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)\n"
                                "tls.load_cert_chain(sys.argv[1])\n"
                                "plain = socket.create_server(('127.0.0.1', 0))\n"
                                "print(plain.getsockname()[1], flush=True)\n"
                                "try:\n"
                                "    tls.wrap_socket(plain.accept()[0], server_side=True)\n"
                                "except (ssl.SSLError, OSError):\n"
                                "    print('refused', flush=True)\n";

TEST(AnUntrustedCertificate, IsRefused) {
    const TemporaryFolder folder;
    const std::string script = folder / "server.py";
    const std::string_view text(kServer);
    writeBytes(script, std::as_bytes(std::span(text)));
    const std::string command = "python3 " + script + " " + TOVIK_SELF_SIGNED;
    // NOLINTNEXTLINE(cert-env33-c): its text is ours
    FILE* const server = ::popen(command.c_str(), "r");
    ASSERT_NE(server, nullptr);
    int port = 0;
    ASSERT_EQ(std::fscanf(server, "%d", &port), 1); // NOLINT(cert-err34-c): checked
    NetRig rig("https://127.0.0.1:" + std::to_string(port) + "/");
    EXPECT_FALSE(rig.open());
    EXPECT_EQ(rig.report().trouble, StreamTrouble::badCertificate);
    std::array<char, 16> word{};
    EXPECT_EQ(std::fscanf(server, "%15s", word.data()), 1);
    EXPECT_STREQ(word.data(), "refused");
    ::pclose(server);
}

} // namespace
} // namespace tovik::sound
