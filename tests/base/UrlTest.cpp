// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Url.h"

#include <gtest/gtest.h>

namespace tovik::base {
namespace {

TEST(Url, schemes) {
    for (const char* url : {"http://x", "HTTPS://x/y?z", "file:///a", "svn+ssh://x", "a1.b-c://"}) {
        EXPECT_TRUE(isUrl(url)) << url;
    }
    for (const char* text : {"", "://x", "1a://x", "/a://b", "a b://c", "c:\\a", "http:/x"}) {
        EXPECT_FALSE(isUrl(text)) << text;
    }
}

TEST(Url, addressesOfTheWeb) {
    for (const char* url : {"http://x", "HTTPS://x/y?z", "http://", "Http://a.mp3"}) {
        EXPECT_TRUE(isWebUrl(url)) << url;
    }
    for (const char* text : {"", "http:/x", "ftp://x", "/http://x", " http://x", "httpsx://y"}) {
        EXPECT_FALSE(isWebUrl(text)) << text;
    }
}

TEST(Url, fileAddressesArePaths) {
    EXPECT_EQ(pathFromFileUrl("file:///a%20b/%C3%BC.ogg"), "/a b/ü.ogg");
    EXPECT_EQ(pathFromFileUrl("FILE://localhost/a"), "/a");
    EXPECT_EQ(pathFromFileUrl("file:/a%2Fb%25"), "/a/b%");
    EXPECT_EQ(pathFromFileUrl("file:///caf%e9#1?2"), "/caf\xE9#1?2");
}

TEST(Url, otherAddressesAreNot) {
    for (const char* url :
         {"http://a/b", "/a", "file:", "file://", "file:a", "file://else/a", "file:///%",
          "file:///%4", "file:///%4g", "file:///%00", "file:///%-1", ""}) {
        EXPECT_EQ(pathFromFileUrl(url), std::nullopt) << url;
    }
}

TEST(Url, pathsAreFileAddresses) {
    EXPECT_EQ(fileUrl("/a b/\xC3\xBC~1.ogg"), "file:///a%20b/%C3%BC~1.ogg");
    EXPECT_EQ(fileUrl("/caf\xE9#1?2%"), "file:///caf%E9%231%3F2%25");
    EXPECT_EQ(pathFromFileUrl(fileUrl("/caf\xE9#1?2% x;=&")), "/caf\xE9#1?2% x;=&");
}

} // namespace
} // namespace tovik::base
