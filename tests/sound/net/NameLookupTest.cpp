// SPDX-License-Identifier: GPL-3.0-or-later
// Names that do not resolve, or not in time. The program's own getaddrinfo stands before the
// system's, so that a look-up can hang.
#include "sound/net/NetRig.h"

#include <atomic>
#include <dlfcn.h>
#include <netdb.h>
#include <string_view>

namespace {

std::atomic<int> hanging = 0;
std::atomic<bool> mayEnd = false;

} // namespace

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the system's own name
extern "C" int getaddrinfo(const char* node, const char* service, const addrinfo* hints,
                           addrinfo** result) {
    if (node != nullptr && std::string_view(node) == "hangs.invalid") {
        ++hanging;
        mayEnd.wait(false);
        --hanging;
        return EAI_NONAME;
    }
    if (node != nullptr && std::string_view(node) == "unknown.invalid") {
        return EAI_NONAME;
    }
    using Routine = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
    static const auto real = reinterpret_cast<Routine>(::dlsym(RTLD_NEXT, "getaddrinfo"));
    return real(node, service, hints, result);
}

namespace tovik::sound {
namespace {

using namespace test;
using Clock = std::chrono::steady_clock;

TEST(AName, ThatIsNotKnownIsTold) {
    NetRig rig("http://unknown.invalid/");
    EXPECT_FALSE(rig.open());
    EXPECT_EQ(rig.report().stage, StreamStage::failed);
    EXPECT_EQ(rig.report().trouble, StreamTrouble::nameNotFound);
}

TEST(AName, WhoseLookUpHangsIsLeftAtOnce) {
    mayEnd = false;
    {
        NetRig rig("http://hangs.invalid/");
        ASSERT_TRUE(soon([] { return hanging == 1; }));
        EXPECT_EQ(rig.report().stage, StreamStage::connecting);
        std::thread reader([&] { EXPECT_FALSE(rig.open()); });
        std::this_thread::sleep_for(20ms); // so that it waits, as a rule
        const auto begin = Clock::now();
        rig.stop.request_stop();
        reader.join();
        EXPECT_LT(Clock::now() - begin, kAtOnce);
    }
    EXPECT_EQ(hanging, 1) << "nobody waited for it";
    mayEnd = true;
    mayEnd.notify_all();
    EXPECT_TRUE(soon([] { return hanging == 0; }));
}

TEST(AName, WhoseLookUpHangsFailsInTheEnd) {
    mayEnd = false;
    NetOptions options = quickOptions();
    options.times.head = 100ms;
    NetRig rig("http://hangs.invalid/", options);
    EXPECT_FALSE(rig.open());
    EXPECT_EQ(rig.report().trouble, StreamTrouble::noAnswer);
    mayEnd = true;
    mayEnd.notify_all();
    EXPECT_TRUE(soon([] { return hanging == 0; }));
}

} // namespace
} // namespace tovik::sound
