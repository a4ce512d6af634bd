// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/Huffman.h"

#include "base/RuntimeError.h"
#include "skin/HuffmanEncoder.h"
#include "skin/Streams.h"

#include <gtest/gtest.h>

namespace tovik::skin {
namespace {

using namespace std::string_literals;

constexpr int kSubscript = 9;
constexpr int kDamaged = -2147221504;

/// Three symbols; "abacab" with codes that fill 5 bits.
HandMade small() {
    return {
        .codes = {{'a', "0"}, {'b', "10"}, {'c', "11"}}, .bits = "010011010", .original = "abacab"};
}

TEST(Huffman, decodesAStreamMadeByHand) {
    EXPECT_EQ(HuffmanDecodeString(small().stream()), "abacab");
}

TEST(Huffman, storedDataIsWhatFollowsTheMagic) {
    EXPECT_EQ(HuffmanDecodeString("HE0\rplain\0text"s), "plain\0text"s);
    EXPECT_EQ(HuffmanDecodeString("HE0\r"), "");
}

TEST(Huffman, anotherMethodStaysAsItIs) {
    EXPECT_EQ(HuffmanDecodeString("HE1\rrest"), "HE1\rrest");
    EXPECT_EQ(HuffmanDecodeString("HE\0\r"s), "HE\0\r"s);
}

TEST(Huffman, withoutTheMagicAStreamIsDecodedAllTheSame) {
    HandMade stream = small();
    for (const std::string& magic : {"XXXX"s, "HE0\n"s, "hE0\r"s, "He1\r"s, "\0\0\0\0"s}) {
        stream.magic = magic;
        EXPECT_EQ(HuffmanDecodeString(stream.stream()), "abacab") << magic;
    }
}

TEST(Huffman, dataOfNoLengthIsTheStreamItself) {
    HandMade stream = small();
    stream.length = 0;
    EXPECT_EQ(HuffmanDecodeString(stream.stream()), stream.stream());
    EXPECT_EQ(HuffmanDecodeString("HE3\r\x7F\0\0\0\0"s), "HE3\r\x7F\0\0\0\0"s);
}

TEST(Huffman, oneSymbolTakesOneBitAByte) {
    const HandMade stream{.codes = {{'z', "1"}}, .bits = "11111111111", .original = "zzzzzzzzzzz"};
    EXPECT_EQ(HuffmanDecodeString(stream.stream()), "zzzzzzzzzzz");
}

TEST(Huffman, codesThatEndWithTheirByteAreFollowedByTheDataAtOnce) {
    // 2 + 2 + 2 + 2 bits: exactly one byte.
    const HandMade stream{.codes = {{'a', "00"}, {'b', "01"}, {'c', "10"}, {'d', "11"}},
                          .bits = "11100100",
                          .original = "dcba"};
    ASSERT_EQ(stream.stream().size(), 11U + 8 + 1 + 1);
    EXPECT_EQ(HuffmanDecodeString(stream.stream()), "dcba");
}

TEST(Huffman, theRestOfACodeByteIsUnused) {
    // 1 + 3 bits: the codes end on bit 3. The unused bits are ones, which would be no data.
    const HandMade stream{
        .codes = {{'a', "0"}, {'b', "101"}}, .bits = "01010", .original = "aba", .filler = '1'};
    ASSERT_EQ(stream.stream().size(), 11U + 4 + 1 + 1);
    EXPECT_EQ(HuffmanDecodeString(stream.stream()), "aba");
}

TEST(Huffman, whatFollowsTheLastSymbolIsNotRead) {
    HandMade stream = small();
    stream.filler = '1';
    const std::string fewer = stream.stream() + "more";
    EXPECT_EQ(HuffmanDecodeString(fewer), "abacab");
    // Bits that lead nowhere are no harm there either.
    const HandMade one{.codes = {{'a', "0"}}, .bits = "00", .original = "aa", .filler = '1'};
    EXPECT_EQ(HuffmanDecodeString(one.stream()), "aa");
}

TEST(Huffman, codesStandInTheOrderOfSymbolsWhateverTheTableSays) {
    std::string stream = small().stream();
    // The table lists a, b, c; now it lists c, b, a with the same lengths.
    stream.replace(11, 6, "c\2b\2a\1"s);
    EXPECT_EQ(HuffmanDecodeString(stream), "abacab");
}

TEST(Huffman, aSymbolListedTwiceKeepsItsLastLength) {
    std::string stream = small().stream();
    stream.replace(9, 2, "\4\0"s);
    stream.insert(11, "b\7"s);
    EXPECT_EQ(HuffmanDecodeString(stream), "abacab");
}

TEST(Huffman, dataThatEndsEarlyHasZerosAtTheEnd) {
    HandMade stream = small();
    stream.length = 1000;
    stream.bits = "01001101"; // a whole byte: no filler is read as symbols
    stream.original = "abaca";
    const std::string data = HuffmanDecodeString(stream.stream());
    EXPECT_EQ(data, "abaca" + std::string(995, '\0'));
}

TEST(Huffman, onlyTheChecksumNoticesAnEarlyEnd) {
    HandMade stream = small();
    stream.length = 1000;
    stream.bits = "01001101";
    stream.original = "abac";
    EXPECT_EQ(numberRaisedBy(stream.stream()), kDamaged);
}

TEST(Huffman, aWrongChecksumIsAnErrorOfItsOwn) {
    HandMade stream = small();
    stream.original = "abacaa";
    try {
        static_cast<void>(HuffmanDecodeString(stream.stream()));
        FAIL() << "nothing was raised";
    } catch (const base::RuntimeError& error) {
        EXPECT_EQ(error.number(), kDamaged);
        EXPECT_EQ(error.source(), "clsHuffman.Decode()");
        EXPECT_EQ(error.description(),
                  "The data might be corrupted (checksum did not match expected value)");
    }
}

TEST(Huffman, theBufferStaysWhenDecodingFails) {
    HandMade made = small();
    made.original = "abacaa";
    const std::string stream = made.stream();
    std::vector<std::uint8_t> buffer(stream.begin(), stream.end());
    EXPECT_THROW(HuffmanDecodeBytes(buffer, static_cast<std::int32_t>(buffer.size())),
                 base::RuntimeError);
    EXPECT_EQ(std::string(buffer.begin(), buffer.end()), stream);
}

TEST(Huffman, theLengthSaysWhereTheStreamEnds) {
    const std::string stream = "HE0\rshort and more";
    std::vector<std::uint8_t> buffer(stream.begin(), stream.end());
    HuffmanDecodeBytes(buffer, 9);
    EXPECT_EQ(std::string(buffer.begin(), buffer.end()), "short");
    EXPECT_THROW(HuffmanDecodeBytes(buffer, 6), base::RuntimeError);
    EXPECT_THROW(HuffmanDecodeBytes(buffer, -1), base::RuntimeError);
}

TEST(Huffman, aStreamCutAnywhereBeforeItsDataIsAnError) {
    const std::string stream = small().stream();
    const std::size_t data = stream.size() - 2;
    for (std::size_t length = 0; length < data; ++length) {
        EXPECT_EQ(numberRaisedBy(stream.substr(0, length)), kSubscript) << length;
    }
    EXPECT_EQ(numberRaisedBy(stream.substr(0, data)), kDamaged);
}

TEST(Huffman, aWalkToNowhereIsAnError) {
    const HandMade stream{.codes = {{'a', "0"}, {'b', "10"}}, .bits = "11", .original = "a"};
    EXPECT_EQ(numberRaisedBy(stream.stream()), kSubscript);
}

TEST(Huffman, withoutSymbolsTheFirstBitLeadsNowhere) {
    const HandMade stream{.codes = {}, .bits = "00", .original = "a"};
    EXPECT_EQ(numberRaisedBy(stream.stream()), kSubscript);
    std::string negative = small().stream();
    negative.replace(9, 2, "\xFF\xFF"); // less than no symbols are none
    EXPECT_EQ(numberRaisedBy(negative), kSubscript);
}

TEST(Huffman, aCodeOfNoBitsIsAnError) {
    std::string stream = small().stream();
    stream[12] = '\0';
    EXPECT_EQ(numberRaisedBy(stream), kSubscript);
}

TEST(Huffman, lengthsOutsideTheBoundsAreErrors) {
    HandMade stream = small();
    stream.original = "abac";
    const auto withLength = [&](std::int32_t length) {
        std::string bytes = stream.stream();
        std::string field;
        appendLittleEndian(field, length);
        return numberRaisedBy(bytes.replace(5, 4, field));
    };
    EXPECT_EQ(withLength(-1), kSubscript);
    EXPECT_EQ(withLength(std::numeric_limits<std::int32_t>::min()), kSubscript);
    EXPECT_EQ(withLength(kMostOriginalBytes + 1), 7);
    EXPECT_EQ(withLength(std::numeric_limits<std::int32_t>::max()), 7);
}

TEST(Huffman, theGreatestLengthIsHonoured) {
    HandMade stream = small();
    stream.length = kMostOriginalBytes;
    stream.bits = "01001101";
    stream.original = "abaca";
    const std::string data = HuffmanDecodeString(stream.stream());
    EXPECT_EQ(data.size(), 64U * 1024 * 1024);
    EXPECT_TRUE(data.starts_with("abaca\0"s));
}

TEST(HuffmanAddCode, buildsTheTreeNodeByNode) {
    HuffmanNodes nodes{};
    std::int16_t count = 1;
    HuffmanAddCode(nodes, count, 'x', std::vector<std::uint8_t>{0, 1});
    EXPECT_EQ(count, 3);
    EXPECT_EQ(nodes[0].LeftNode, 1);
    EXPECT_EQ(nodes[0].RightNode, -1);
    EXPECT_EQ(nodes[1].ParentNode, 0);
    EXPECT_EQ(nodes[1].RightNode, 2);
    EXPECT_EQ(nodes[1].Value, -1);
    EXPECT_EQ(nodes[2].ParentNode, 1);
    EXPECT_EQ(nodes[2].Value, 'x');
    HuffmanAddCode(nodes, count, 'y', std::vector<std::uint8_t>{0, 0});
    EXPECT_EQ(count, 4);
    EXPECT_EQ(nodes[1].LeftNode, 3);
    EXPECT_EQ(nodes[3].Value, 'y');
    HuffmanAddCode(nodes, count, 'z', std::vector<std::uint8_t>{0, 1});
    EXPECT_EQ(count, 4);
    EXPECT_EQ(nodes[2].Value, 'z');
}

TEST(HuffmanAddCode, holds512Nodes) {
    HuffmanNodes nodes{};
    std::int16_t count = 1;
    HuffmanAddCode(nodes, count, 'x', std::vector<std::uint8_t>(511, 1));
    EXPECT_EQ(count, 512);
    EXPECT_EQ(nodes[511].Value, 'x');
    EXPECT_THROW(HuffmanAddCode(nodes, count, 'y', std::vector<std::uint8_t>{0}),
                 base::RuntimeError);
    EXPECT_EQ(count, 512);
}

TEST(Huffman, aTreeThatIsFullIsAnError) {
    // Three codes of 255 bits that part at the root's children: 1 + 3 * 254 + 2 nodes and more.
    const std::string tail(253, '0');
    const HandMade stream{.codes = {{'a', "00" + tail}, {'b', "01" + tail}, {'c', "10" + tail}},
                          .bits = "0",
                          .original = "a"};
    EXPECT_EQ(numberRaisedBy(stream.stream()), kSubscript);
}

TEST(Huffman, codesOf255BitsDecode) {
    const std::string tail(253, '1');
    const HandMade stream{.codes = {{'a', "00" + tail}, {'b', "01" + tail}},
                          .bits = "01" + tail + "00" + tail,
                          .original = "ba"};
    EXPECT_EQ(HuffmanDecodeString(stream.stream()), "ba");
}

TEST(HuffmanEncoder, whatItMakesIsDecoded) {
    std::string all;
    for (int symbol = 0; symbol < 256; ++symbol) {
        all.append(static_cast<std::size_t>(symbol * symbol % 97 + 1), static_cast<char>(symbol));
    }
    std::string steep; // counts that double: codes of every length up to 19
    for (int symbol = 0; symbol < 20; ++symbol) {
        steep.append(std::size_t{1} << symbol, static_cast<char>('a' + symbol));
    }
    for (const std::string& data : {"a"s, "ab"s, "\0"s, std::string(1000, '\xFF'), all, steep}) {
        EXPECT_EQ(HuffmanDecodeString(huffmanStream(data)), data);
        EXPECT_EQ(HuffmanDecodeString(storedStream(data)), data);
        EXPECT_EQ(HuffmanDecodeString(smallestStream(data)), data);
    }
}

TEST(HuffmanEncoder, makesTheCanonicalCode) {
    // Counts 3, 1, 1: lengths 1, 2, 2, so the codes are 0, 10, 11.
    const HandMade expected{
        .codes = {{'a', "0"}, {'b', "10"}, {'c', "11"}}, .bits = "0100011", .original = "abaac"};
    EXPECT_EQ(huffmanStream("abaac"), expected.stream());
}

TEST(HuffmanEncoder, takesTheSmallerForm) {
    EXPECT_EQ(smallestStream("abc"), "HE0\rabc");
    EXPECT_EQ(smallestStream(""), "HE0\r");
    const std::string uniform(1000, 'x');
    EXPECT_EQ(smallestStream(uniform), huffmanStream(uniform));
    EXPECT_LT(smallestStream(uniform).size(), 150U);
}

TEST(HuffmanEncoder, cannotTellNoDataInACode) {
    EXPECT_THROW(static_cast<void>(huffmanStream("")), base::RuntimeError);
}

} // namespace
} // namespace tovik::skin
