#include "platform/html/ParserArena.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

TEST(ParserArena, PiecesOfEverySizeHoldWhatIsWrittenIntoThem) {
    ParserArena arena;
    std::vector<std::pair<char*, std::size_t>> pieces;
    for (std::size_t size = 0; size < 3000; size += 7) {
        auto* piece = static_cast<char*>(arena.Allocate(size));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(piece) % alignof(void*), 0u) << size;
        std::memset(piece, static_cast<int>(size % 251), size);
        pieces.emplace_back(piece, size);
    }
    for (const auto& [piece, size] : pieces)
        EXPECT_EQ(std::string(piece, size), std::string(size, static_cast<char>(size % 251)));
}

TEST(ParserArena, WhatIsGivenBackIsHandedOutAgain) {
    ParserArena arena;
    for (const std::size_t size : {1u, 100u, 5000u}) {
        void* const piece = arena.Allocate(size);
        EXPECT_NE(arena.Allocate(size), piece);
        arena.Free(piece);
        EXPECT_EQ(arena.Allocate(size), piece);
    }
    arena.Free(nullptr);
}

TEST(ParserArena, APieceThatGrowsKeepsWhatStandsInIt) {
    ParserArena arena;
    auto* piece = static_cast<char*>(arena.Reallocate(nullptr, 3));
    std::memcpy(piece, "abc", 3);
    for (std::size_t size = 4; size < 100'000; size = size * 3 / 2) {
        piece = static_cast<char*>(arena.Reallocate(piece, size));
        ASSERT_EQ(std::string(piece, 3), "abc") << size;
        std::memset(piece + 3, 'x', size - 3);
        // Others do not lie in it.
        std::memset(arena.Allocate(size), 'y', size);
        EXPECT_EQ(std::string(piece + 3, size - 3), std::string(size - 3, 'x')) << size;
    }
    void* const same = arena.Reallocate(piece, 5);
    EXPECT_EQ(same, piece);
}

} // namespace
} // namespace paperkite::test
