// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FileTypes.h"

#include "desktop/MimeTypes.h"
#include "playlist/AudioExtensions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace tovik::desktop {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr const char* kProgram = "/opt/a b/tovik";
constexpr const char* kIcon = "/opt/a b\\tkstart.exe,1";

KeyStore associated(const std::vector<std::string>& extensions) {
    KeyStore store;
    associate(store, extensions, kProgram, kIcon);
    return store;
}

std::vector<std::string> keysOf(const KeyStore& store) {
    std::vector<std::string> keys;
    for (const auto& [key, values] : store.keys()) {
        keys.push_back(key);
    }
    return keys;
}

TEST(FileTypes, whatOneExtensionWrites) {
    EXPECT_EQ(associated({"mp3"}).bytes(),
              "[.mp3]\r\n@=Tovik\r\n"
              "[Tovik]\r\n@=Tovik Media File\r\n"
              "[Tovik\\DefaultIcon]\r\n@=/opt/a b\\tkstart.exe,1\r\n"
              "[Tovik\\shell\\open\\command]\r\n@=\"/opt/a b/tovik\" %1\r\n"
              "[file\\Shell\\mp3Add to Tovik playlist]\r\n@=\r\n"
              "[file\\Shell\\mp3Add to Tovik playlist\\command]\r\n"
              "@=\"/opt/a b/tovik\" /ADD \"%1\"\r\n"
              "[file\\Shell\\mp3Play File]\r\n@=\r\n"
              "[file\\Shell\\mp3Play File\\command]\r\n@=\"/opt/a b/tovik\" /Play \"%1\"\r\n");
}

TEST(FileTypes, noneTickedWritesNothing) {
    EXPECT_THAT(associated({}).keys(), IsEmpty());
}

TEST(FileTypes, whatIsNotTickedStays) {
    KeyStore store = associated({"mp3", "ogg"});
    associate(store, std::vector<std::string>{"wav"}, kProgram, kIcon);
    EXPECT_EQ(store.value(".mp3"), "Tovik");
    EXPECT_EQ(store.value(".ogg"), "Tovik");
    EXPECT_EQ(store.value(".wav"), "Tovik");
}

TEST(FileTypes, twiceIsOnce) {
    KeyStore twice = associated({"mp3"});
    associate(twice, std::vector<std::string>{"mp3"}, kProgram, kIcon);
    EXPECT_EQ(twice, associated({"mp3"}));
}

TEST(FileTypes, noIconNoKeyForIt) {
    KeyStore store;
    RegisterExtension(store, "mp3", kProgram, "Class", "Text", "");
    EXPECT_THAT(keysOf(store), ElementsAre(".mp3", "Class", "Class\\shell\\open\\command"));
}

TEST(FileTypes, aVerbDropsTheDotsOfItsExtension) {
    KeyStore store;
    AddShellVerb(store, ".mp3", kProgram, "Play File", "/Play");
    EXPECT_THAT(keysOf(store),
                ElementsAre("file\\Shell\\mp3Play File", "file\\Shell\\mp3Play File\\command"));
}

TEST(KeyStoreTest, comesBackFromItsBytes) {
    KeyStore store = associated({"mp3", "ogg"});
    store.WriteKey("a=b", "named value", "x = \"y\"; z");
    store.WriteKey("a]b", "", "two\r\nlines");
    EXPECT_EQ(KeyStore::fromBytes(store.bytes()), store);
    EXPECT_EQ(store.value("a]b"), "two  lines");
}

TEST(KeyStoreTest, whatIsNoLineIsPassedOver) {
    const KeyStore store = KeyStore::fromBytes("@=lost\nnoise\n[k]\nnoise\n=x\n@=v\n[open\nn=w");
    EXPECT_THAT(keysOf(store), ElementsAre("k"));
    EXPECT_EQ(store.value("k"), "v");
    EXPECT_EQ(store.value("k", "n"), "w");
    EXPECT_EQ(store.value("k", "none"), "");
    EXPECT_EQ(store.value("none"), "");
}

TEST(KeyStoreTest, theDefaultOfAKeyBelow) {
    KeyStore store;
    store.WriteDefault(kClassesRoot, "a", "b", "text");
    EXPECT_EQ(store.value("a\\b"), "text");
    EXPECT_THROW(store.WriteDefault(0, "a", "", ""), std::invalid_argument);
}

TEST(MimeTypesTest, everyFileThatIsKnownHasAType) {
    for (const std::string_view extension : playlist::AudioExtensions) {
        if (extension == "cda") {
            EXPECT_THAT(mimeTypesOf(extension), IsEmpty()) << "a track of a disc is no file";
        } else {
            EXPECT_THAT(mimeTypesOf(extension), Not(IsEmpty())) << extension;
        }
    }
    EXPECT_THAT(mimeTypesOf("ogg"), ElementsAre("audio/x-vorbis+ogg", "audio/ogg"));
    EXPECT_THAT(mimeTypesOf("exe"), IsEmpty());
}

TEST(MimeTypesTest, noneIsThatOfVideosOrOfAContainer) {
    for (const std::string_view extension : playlist::AudioExtensions) {
        EXPECT_THAT(mimeTypesOf(extension), Each(StartsWith("audio/"))) << extension;
    }
}

} // namespace
} // namespace tovik::desktop
