// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of plug-ins in a kernel that cannot confine them.
#include "sound/visual/VisualRig.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <linux/filter.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <optional>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tovik::test {
namespace {

/// A call that the kernel does not know; with a first argument, if one is named.
struct MissingRow {
    const char* name;
    long call;
    std::optional<std::uint32_t> argument;
};

/// For this process and those that it starts.
void forget(const MissingRow& row) {
    constexpr auto kNumber = static_cast<std::uint32_t>(offsetof(seccomp_data, nr));
    constexpr auto kFirst = static_cast<std::uint32_t>(offsetof(seccomp_data, args));
    std::array filter = {
        sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, kNumber),
        sock_filter BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(row.call), 0, 3),
        sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, row.argument ? kFirst : kNumber),
        sock_filter BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K,
                             row.argument.value_or(static_cast<std::uint32_t>(row.call)), 0, 1),
        sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
        sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) {
        ::_exit(1);
    }
}

constexpr std::uint32_t kDidNotRun = 0xFFFFFFFFU;
constexpr std::uint32_t kFailed = 0xFFFFFFFEU;

/// What a plug-in that tries everything could do there.
std::uint32_t whatItCould() {
    sound::Visual visual(TOVIK_VIS_HOST, faultyVis("pries"), "", 40, 10);
    Canvas canvas{40, 10};
    if (!visual.ask({}) || awaitNews(visual) != sound::VisualNews::picture) {
        return kDidNotRun;
    }
    return visual.show(canvas.surface()) ? canvas.pixels[0] & 0xFFFFFFU : kFailed;
}

class EachMissingCall : public testing::TestWithParam<MissingRow> {
protected:
    ~EachMissingCall() override { std::filesystem::remove("/tmp/tovik-must-not-be-there"); }
};

TEST_P(EachMissingCall, leavesThePlayerAndTheFilesOutOfReach) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const pid_t player = ::fork();
    if (player == 0) {
        forget(GetParam());
        const std::uint32_t could = whatItCould();
        ::_exit(::write(pipe[1], &could, sizeof could) == sizeof could ? 0 : 1);
    }
    ::close(pipe[1]);
    std::uint32_t could = kFailed;
    ASSERT_EQ(::read(pipe[0], &could, sizeof could), static_cast<ssize_t>(sizeof could));
    ::close(pipe[0]);
    ::waitpid(player, nullptr, 0);
    if (could != kDidNotRun) {
        EXPECT_EQ(could, 0U) << std::hex << could;
    }
}

INSTANTIATE_TEST_SUITE_P(Visual, EachMissingCall,
                         testing::Values(MissingRow{"realm", SYS_landlock_create_ruleset, {}},
                                         MissingRow{"filter", SYS_prctl, PR_SET_SECCOMP},
                                         MissingRow{"privileges", SYS_prctl, PR_SET_NO_NEW_PRIVS}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace tovik::test
