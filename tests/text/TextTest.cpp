// SPDX-License-Identifier: Apache-2.0
#include "text/Text.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <new>

namespace qz::test {
namespace {

// Lengths around the size of the internal buffer.
TEST(Text, AnyLength) {
    for (const size_t first : std::initializer_list<size_t>{0, 1, 254, 255, 256, 700}) {
        for (const size_t second : std::initializer_list<size_t>{0, 1, 2, 300}) {
            const std::string pieces[] = {std::string(first, 'a'), std::string(second, 'b'), "", "c"};
            Text text;
            std::string expected;
            for (const std::string& piece : pieces) {
                text << piece.c_str();
                expected += piece;
                EXPECT_EQ(text.c_str(), expected);
                EXPECT_EQ(text.size(), expected.size());
            }
        }
    }
}

TEST(Text, Numbers) {
    for (const int32_t number :
         {0, 7, -7, 10, -2100, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()}) {
        EXPECT_EQ(Decimal(number).c_str(), std::to_string(number));
        alignas(Text) unsigned char memory[sizeof(Text)];
        std::fill(std::begin(memory), std::end(memory), 'x');
        EXPECT_STREQ((new (memory) Text)->c_str(), "");
        Text text;
        text << number << "x" << number;
        EXPECT_EQ(text.c_str(), std::to_string(number) + "x" + std::to_string(number));
    }
}

}  // namespace
}  // namespace qz::test
