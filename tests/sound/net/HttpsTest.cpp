// SPDX-License-Identifier: GPL-3.0-or-later
// Servers that speak https: a certificate counts if somebody who is trusted vouches for it and it
// is that of the host.
#include "sound/net/NetRig.h"

#include <array>
#include <cstdio>

namespace tovik::sound {
namespace {

using namespace test;

/// Serves one connection over TLS, with the song of a file; its port is the first line that it
/// prints, how it went the second one.
constexpr const char* kServer =
    "import socket, ssl, sys\n"
    "tls = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)\n"
    "tls.load_cert_chain(sys.argv[1])\n"
    "plain = socket.create_server((sys.argv[2], 0))\n"
    "print(plain.getsockname()[1], flush=True)\n"
    "try:\n"
    "    peer = tls.wrap_socket(plain.accept()[0], server_side=True)\n"
    "    if not peer.recv(65536):\n"
    "        raise OSError\n"
    "    peer.sendall(b'HTTP/1.0 200 OK\\r\\nContent-Type: audio/mpeg\\r\\n\\r\\n')\n"
    "    peer.sendall(open(sys.argv[3], 'rb').read())\n"
    "    peer.unwrap()\n"
    "    print('served', flush=True)\n"
    "except (ssl.SSLError, OSError):\n"
    "    print('refused', flush=True)\n";

class HttpsServer {
public:
    explicit HttpsServer(const std::string& host) : host_(host) {
        const std::string script = folder_ / "server.py";
        const std::string_view text(kServer);
        writeBytes(script, std::as_bytes(std::span(text)));
        const std::string command = "python3 " + script + " " + TOVIK_SELF_SIGNED + " " + host +
                                    " " + mediaPath("mp3_cbr128.mp3");
        // NOLINTNEXTLINE(cert-env33-c): its text is ours
        process_ = ::popen(command.c_str(), "r");
        EXPECT_NE(process_, nullptr);
        EXPECT_EQ(std::fscanf(process_, "%d", &port_), 1); // NOLINT(cert-err34-c): checked
    }

    ~HttpsServer() { ::pclose(process_); }

    HttpsServer(const HttpsServer&) = delete;
    HttpsServer& operator=(const HttpsServer&) = delete;

    [[nodiscard]] std::string url() const {
        return "https://" + host_ + ":" + std::to_string(port_) + "/";
    }

    /// How it went.
    [[nodiscard]] std::string word() {
        std::array<char, 16> word{};
        EXPECT_EQ(std::fscanf(process_, "%15s", word.data()), 1);
        return word.data();
    }

private:
    TemporaryFolder folder_;
    std::string host_;
    std::FILE* process_ = nullptr;
    int port_ = 0;
};

/// One that trusts the test's certificate.
NetOptions trusting() {
    NetOptions options = quickOptions();
    options.fetch = [](const HttpRequest& request, HttpSink& sink, const std::stop_token& off) {
        HttpRequest trusted = request;
        trusted.authorities = TOVIK_SELF_SIGNED;
        return fetchHttp(trusted, sink, off);
    };
    return options;
}

TEST(ACertificate, ThatIsTrustedIsThatOfAStation) {
    HttpsServer server("127.0.0.1");
    NetRig rig(server.url(), trusting());
    EXPECT_GT(rig.readAll().size(), 44'100U);
    EXPECT_TRUE(rig.heard.bytes() == mediaText("mp3_cbr128.mp3"));
    EXPECT_EQ(server.word(), "served");
}

TEST(ACertificate, ThatNobodyVouchesForIsRefused) {
    HttpsServer server("127.0.0.1");
    NetRig rig(server.url());
    EXPECT_FALSE(rig.open());
    EXPECT_EQ(rig.report().trouble, StreamTrouble::badCertificate);
    EXPECT_EQ(server.word(), "refused");
}

TEST(ACertificate, OfAnotherHostIsRefused) {
    HttpsServer server("127.0.0.2");
    NetRig rig(server.url(), trusting());
    EXPECT_FALSE(rig.open());
    EXPECT_EQ(rig.report().trouble, StreamTrouble::badCertificate);
    EXPECT_EQ(server.word(), "refused");
}

} // namespace
} // namespace tovik::sound
