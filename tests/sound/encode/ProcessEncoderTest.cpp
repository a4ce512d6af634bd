// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/encode/ProcessEncoder.h"

#include "sound/encode/EncodeRig.h"
#include "support/host/TemporaryFolder.h"

#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace tovik::sound {

namespace {

using test::script;
using tovik::test::TemporaryFolder;

EncodeReport endOf(const ProcessEncoder& encoder) {
    return test::waitForEnd([&] { return encoder.report(); });
}

/// Feeds a program and waits for its end.
EncodeReport run(const EncoderCommand& command, std::size_t bytes) {
    const auto encoder = ProcessEncoder::start(command);
    if (encoder == nullptr) {
        ADD_FAILURE() << command.text;
        return {};
    }
    const std::vector<std::byte> block(20000);
    for (std::size_t fed = 0; fed < bytes && encoder->feed(block); fed += block.size()) {
    }
    encoder->close();
    return endOf(*encoder);
}

} // namespace

TEST(ProcessEncoder, GivesTheProgramEveryByte) {
    const TemporaryFolder folder;
    const auto encoder = ProcessEncoder::start(script("cat > \"$1\"", folder / "out"));
    ASSERT_NE(encoder, nullptr);
    EXPECT_EQ(encoder->report().stage, EncodeStage::running);
    std::string all;
    for (int i = 0; i < 200; ++i) {
        const std::string piece(static_cast<std::size_t>(i * 50), static_cast<char>('a' + i % 26));
        EXPECT_TRUE(encoder->feed(std::as_bytes(std::span(piece))));
        all += piece;
    }
    encoder->close();
    EXPECT_EQ(endOf(*encoder).stage, EncodeStage::finished);
    EXPECT_EQ(folder.read("out"), all);
    EXPECT_FALSE(encoder->feed(std::as_bytes(std::span(all))));
}

TEST(ProcessEncoder, FinishesTheFileOfOneThatWasLetGo) {
    const TemporaryFolder folder;
    ProcessEncoder::start(script("cat > \"$1\"; touch \"$1.done\"", folder / "out"))
        ->feed(std::as_bytes(std::span("abc", 3)));
    for (int i = 0; i < 3000 && !std::filesystem::exists(folder / "out.done"); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_EQ(folder.read("out"), "abc");
}

TEST(ProcessEncoder, TellsWhatAProgramSaidThatFailed) {
    const EncodeReport report =
        run(script("printf ' 1%%\\r 2%%\\nNo room left \\n\\n' >&2; cat > /dev/null; exit 3"), 100);
    EXPECT_EQ(report.stage, EncodeStage::failed);
    EXPECT_EQ(report.words, "No room left");
    EXPECT_FALSE(report.takesMore);
    EXPECT_EQ(
        run(script("printf 'Begun\\nWriting failed\\nDone\\n' >&2; cat > /dev/null; exit 1"), 9)
            .words,
        "Writing failed");
}

TEST(ProcessEncoder, OutlivesAProgramThatDies) {
    // More than a pipe holds: the writes that fail must not end this process.
    for (const char* death : {"exit 0", "exit 1", "kill -9 $$"}) {
        const EncodeReport report = run(script(death), 1'000'000);
        EXPECT_EQ(report.stage, EncodeStage::failed) << death;
    }
}

TEST(ProcessEncoder, IsNotHeldUpByAProgramThatTalks) {
    // More than a pipe holds, before it reads anything.
    EXPECT_EQ(run(script("head -c 300000 /dev/zero >&2; cat > /dev/null"), 500'000).stage,
              EncodeStage::finished);
}

TEST(ProcessEncoder, IsNotThereWithoutAProgram) {
    EXPECT_EQ(ProcessEncoder::start({.program = "/no/such/program"}), nullptr);
    EXPECT_EQ(ProcessEncoder::start({.program = "/etc/passwd"}), nullptr);
}

TEST(ProcessEncoder, ArgumentsStayOneWordEach) {
    const TemporaryFolder folder;
    const std::string odd = folder / "-a \"b\"; touch $HOME 'c'.mp3";
    EXPECT_EQ(run({.program = "/usr/bin/touch", .arguments = {"--", odd}}, 0).stage,
              EncodeStage::finished);
    EXPECT_TRUE(std::filesystem::exists(odd));
}

TEST(ProcessEncoder, GivesWayByItsNiceness) {
    const TemporaryFolder folder;
    EncoderCommand command =
        script("head -c 1 > /dev/null; nice > \"$1\"; cat >/dev/null", folder / "nice");
    command.niceness = 19;
    EXPECT_EQ(run(command, 10).stage, EncodeStage::finished);
    EXPECT_EQ(folder.read("nice"), "19\n");
    command.niceness = 0;
    EXPECT_EQ(run(command, 10).stage, EncodeStage::finished);
    EXPECT_EQ(std::stoi(folder.read("nice")), ::getpriority(PRIO_PROCESS, 0));
}

TEST(ProcessEncoder, HasNothingOfThePlayerOpen) {
    const TemporaryFolder folder;
    const int open = ::open("/dev/null", O_RDONLY); // NOLINT(android-cloexec-open): on purpose
    ASSERT_GE(open, 3);
    EXPECT_EQ(run(script("ls -l /proc/self/fd > \"$1\"; readlink /proc/self/fd/" +
                             std::to_string(open) + " >> \"$1\"",
                         folder / "open"),
                  0)
                  .stage,
              EncodeStage::failed); // readlink's: there is no such file
    ::close(open);
    EXPECT_NE(folder.read("open"), "");
}

TEST(ProcessEncoder, TakesOnlySoMuchAhead) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "gate").c_str(), 0600), 0);
    const auto encoder =
        ProcessEncoder::start(script("read line < \"$1\"; cat > /dev/null", folder / "gate"));
    ASSERT_NE(encoder, nullptr);
    const std::vector<std::byte> block(20000);
    std::size_t fed = 0;
    for (; encoder->report().takesMore; fed += block.size()) {
        ASSERT_TRUE(encoder->feed(block));
        ASSERT_LT(fed, 3'000'000U);
    }
    EXPECT_GE(fed, 1'000'000U);
    folder.write("gate", "go\n");
    encoder->close();
    EXPECT_EQ(endOf(*encoder).stage, EncodeStage::finished);
}

TEST(ProcessEncoder, EndsAProgramThatDoesNotEnd) {
    for (const char* stubborn : {"sleep 1000", "cat > /dev/null; sleep 1000"}) {
        // A pipe holds less than this.
        const std::vector<std::byte> block(200'000);
        const auto encoder = ProcessEncoder::start(script("exec 3>&2; " + std::string(stubborn)),
                                                   std::chrono::milliseconds(50));
        ASSERT_NE(encoder, nullptr);
        encoder->feed(block);
        encoder->close();
        EXPECT_EQ(endOf(*encoder).stage, EncodeStage::failed) << stubborn;
    }
}

TEST(ProcessEncoder, EndsAProgramThatSaysNothingMoreAndDoesNotEnd) {
    for (const char* stubborn :
         {"exec 2>&-; exec sleep 1000", "exec 2>/dev/null; cat > /dev/null; exec sleep 1000"}) {
        const auto encoder = ProcessEncoder::start(script(stubborn), std::chrono::milliseconds(50));
        ASSERT_NE(encoder, nullptr);
        encoder->feed(std::vector<std::byte>(100));
        encoder->close();
        EXPECT_EQ(endOf(*encoder).stage, EncodeStage::failed) << stubborn;
    }
    // It has time to end by itself.
    EXPECT_EQ(run(script("exec 2>&-; cat > /dev/null; sleep 0.1"), 100).stage,
              EncodeStage::finished);
}

} // namespace tovik::sound
