// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "engine/text.h"

#include "tests/support/allocation.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

namespace lexivore {
namespace {

constexpr std::size_t megabyte = 1'000'000;

std::string joinedRuns(const Text &text, std::size_t offset, std::size_t length) {
    std::string all;
    text.forEachRun(offset, length, [&](std::string_view run) {
        EXPECT_FALSE(run.empty());
        all += run;
    });
    return all;
}

std::string joinedRuns(const Text &text) { return joinedRuns(text, 0, text.size()); }

std::size_t runCount(const Text &text) {
    std::size_t count = 0;
    text.forEachRun(0, text.size(), [&](std::string_view) { ++count; });
    return count;
}

Text largeText(std::size_t bytes) {
    TextBuffer buffer = TextBuffer::withCapacity(bytes);
    char *const room = buffer.room(bytes);
    for (std::size_t i = 0; i < bytes; ++i) {
        room[i] = static_cast<char>('a' + i % 26);
    }
    buffer.commit(room + bytes);
    return Text(std::move(buffer));
}

/// True when every byte of `text` lies in the bytes of `whole`, apart from at most `elsewhere` bytes.
bool sharesBytes(const Text &text, std::string_view whole, std::size_t elsewhere) {
    std::size_t other = 0;
    text.forEachRun(0, text.size(), [&](std::string_view run) {
        const bool inside = run.data() >= whole.data() && run.data() + run.size() <= whole.data() + whole.size();
        other += inside ? 0 : run.size();
    });
    return other <= elsewhere;
}

TEST(Text, IsEmptyAtFirst) {
    const Text text;
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.size(), 0U);
    EXPECT_EQ(text.view(), "");
    EXPECT_EQ(text, Text(""));
    EXPECT_TRUE(text.sharesAllWith(Text(TextBuffer())));
    EXPECT_EQ(joinedRuns(text), "");
    EXPECT_EQ(text.slice(0, 0), text);
}

TEST(Text, KeepsEveryByteAsItCame) {
    using namespace std::string_view_literals;
    const std::string_view bytes = "\xEF\xBB\xBFone\r\ntwo\rthree\xE2\x80\xA8\t\0 end"sv;
    EXPECT_EQ(Text(bytes).view(), bytes);
    EXPECT_EQ(Text(TextBuffer(bytes)).view(), bytes);
}

TEST(Text, TakesABufferWithoutCopyingIt) {
    TextBuffer buffer(std::string(10'000, 'x'));
    const char *const bytes = buffer.data();
    const Text text(std::move(buffer));
    EXPECT_EQ(static_cast<const void *>(text.view().data()), static_cast<const void *>(bytes));
}

TEST(Text, ReplacesInsertsAndRemoves) {
    const Text text("Hello world");
    EXPECT_EQ(text.replaced(0, 5, "Goodbye").view(), "Goodbye world");
    EXPECT_EQ(text.replaced(5, 0, ",").view(), "Hello, world");
    EXPECT_EQ(text.replaced(5, 6, "").view(), "Hello");
    EXPECT_EQ(text.replaced(11, 0, "!").view(), "Hello world!");
    EXPECT_EQ(text.replaced(0, 11, "").view(), "");
    EXPECT_EQ(text.replaced(0, 11, Text("all new")).view(), "all new");
    EXPECT_EQ(Text().replaced(0, 0, "first").view(), "first");
    EXPECT_EQ(text.view(), "Hello world");
}

TEST(Text, SlicesWithoutCopying) {
    const Text text = largeText(megabyte);
    const Text middle = text.slice(1'000, 500'000);
    EXPECT_EQ(middle.view(), text.view().substr(1'000, 500'000));
    EXPECT_EQ(middle.view().data(), text.view().data() + 1'000);
    EXPECT_TRUE(text.slice(0, text.size()).sharesAllWith(text));
    EXPECT_TRUE(text.slice(400, 0).empty());
}

TEST(Text, AShortSliceDoesNotKeepALargeBufferAlive) {
    const std::size_t before = test::allocatedBytes();
    Text piece;
    {
        const Text text = largeText(10 * megabyte);
        piece = text.slice(5'000'000, 26);
    }
    EXPECT_EQ(piece.size(), 26U);
    TextBuffer::releaseSpareMemory();
    EXPECT_LT(test::allocatedBytes(), before + 100'000);
}

TEST(Text, AnEditThatChangesNothingIsTheSameValue) {
    const Text text("abc");
    EXPECT_TRUE(text.replaced(1, 0, "").sharesAllWith(text));
    EXPECT_FALSE(text.replaced(1, 1, "b").sharesAllWith(text));
    EXPECT_EQ(text.replaced(1, 1, "b"), text);
}

TEST(Text, CopiesShareAllAndEqualBytesAreEqual) {
    const Text text("abc");
    const Text copy = text; // NOLINT(performance-unnecessary-copy-initialization): the copy is what is tested
    EXPECT_TRUE(copy.sharesAllWith(text));
    EXPECT_FALSE(Text("abc").sharesAllWith(text));
    EXPECT_EQ(Text("abc"), text);
    EXPECT_NE(Text("abd"), text);
    EXPECT_NE(Text("ab"), text);
    EXPECT_NE(Text(), text);
}

TEST(Text, ComparesTextsThatAreCutDifferently) {
    Text one = largeText(50'000);
    Text two = largeText(50'000);
    for (std::size_t offset = 100; offset < 49'000; offset += 3'000) {
        one = one.replaced(offset, 26, Text(one.slice(offset, 26)));
        two = two.replaced(offset + 777, 5'000 % (50'000 - offset - 777),
                           Text(two.slice(offset + 777, 5'000 % (50'000 - offset - 777))));
    }
    EXPECT_GT(runCount(one), 1U);
    EXPECT_GT(runCount(two), 1U);
    EXPECT_EQ(one, two);
    EXPECT_NE(one.replaced(49'999, 1, "#"), two);
    EXPECT_NE(one.replaced(0, 1, "#"), two);
}

TEST(Text, ViewFlattensOnceForAllCopies) {
    const Text text = largeText(megabyte).replaced(500'000, 3, "###");
    const Text copy = text; // NOLINT(performance-unnecessary-copy-initialization): the copy is what is tested
    ASSERT_GT(runCount(text), 1U);
    const std::string_view flat = text.view();
    EXPECT_EQ(copy.view().data(), flat.data());
    EXPECT_EQ(runCount(copy), 1U);
    EXPECT_EQ(flat.substr(500'000, 3), "###");
    EXPECT_EQ(flat.size(), megabyte);
}

TEST(Text, AViewStaysValidWhileAnyCopyLives) {
    Text copy;
    std::string_view view;
    {
        const Text text = Text("abc").replaced(1, 1, std::string(10'000, 'x'));
        copy = text;
        view = text.view();
    }
    EXPECT_EQ(view, "a" + std::string(10'000, 'x') + "c");
}

TEST(Text, MayBeFlattenedWhileItsRunsAreVisited) {
    Text text = largeText(100'000);
    for (std::size_t offset = 10'000; offset < 90'000; offset += 10'000) {
        text = text.replaced(offset, 0, std::string(3'000, '#'));
    }
    const std::string expected = joinedRuns(text);
    std::string visited;
    text.forEachRun(0, text.size(), [&](std::string_view run) {
        EXPECT_EQ(text.view().size(), expected.size());
        visited += run;
    });
    EXPECT_EQ(visited, expected);
    EXPECT_EQ(text.view(), expected);
}

TEST(Text, StaysSoundWhenAPartOfItIsFlattened) {
    // Texts that are themselves flattened after they became a part of others leave those lower than they were built.
    std::mt19937 random(7);
    std::string model;
    Text text;
    for (int round = 0; round < 300; ++round) {
        Text part = text;
        for (int i = 0; i < 10; ++i) {
            part = part.replaced(random() % (part.size() + 1), 0, std::string(3'000, static_cast<char>('a' + i)));
        }
        const std::size_t offset = random() % (text.size() + 1);
        text = text.replaced(offset, 0, part);
        model.insert(offset, joinedRuns(part));
        EXPECT_EQ(part.view().size(), part.size());
        if (model.size() > 3 * megabyte) {
            const std::size_t keep = random() % 20'000;
            text = text.slice(keep, 100'000);
            model = model.substr(keep, 100'000);
        }
        ASSERT_EQ(joinedRuns(text), model) << "round " << round;
    }
}

TEST(Text, AnEditOfAHundredMegabytesAllocatesNoSecondHundredMegabytes) {
    const Text text = largeText(100 * megabyte);
    const std::size_t before = test::allocatedBytes();
    const Text edited = text.replaced(50 * megabyte, 10, "a few bytes");
    EXPECT_LT(test::allocatedBytes(), before + 10'000);
    EXPECT_TRUE(sharesBytes(edited, text.view(), 11));
    EXPECT_EQ(edited.size(), text.size() + 1);
}

TEST(Text, TypingInOnePlaceDoesNotLeaveARunForEveryKey) {
    constexpr std::size_t start = 500'000;
    Text text = largeText(megabyte);
    const std::string original(text.view());
    for (std::size_t i = 0; i < 20'000; ++i) {
        text = text.replaced(start + i, 0, "k");
    }
    EXPECT_LT(runCount(text), 50U);
    EXPECT_EQ(text.view(), original.substr(0, start) + std::string(20'000, 'k') + original.substr(start));
}

TEST(Text, DeletingKeyByKeyDoesNotPileUpRuns) {
    Text text = largeText(megabyte);
    const std::string original(text.view());
    for (std::size_t i = 0; i < 20'000; ++i) {
        text = text.replaced(500'000 - i - 1, 1, "");
    }
    EXPECT_LE(runCount(text), 3U);
    EXPECT_EQ(text.view(), original.substr(0, 480'000) + original.substr(500'000));
}

TEST(Text, ManyEditsInOrderKeepTheTreeShallow) {
    // An unbalanced tree of 200,000 leaves would take quadratic time here and overflow the stack when destroyed.
    const std::string piece(3'000, 'p');
    const Text shared(piece);
    Text text;
    for (int i = 0; i < 200'000; ++i) {
        text = text.replaced(text.size(), 0, shared);
    }
    EXPECT_EQ(text.size(), 200'000U * 3'000U);
    for (int i = 0; i < 100'000; ++i) {
        text = text.replaced(0, 3'000, Text());
    }
    EXPECT_EQ(runCount(text), 100'000U);
    EXPECT_EQ(joinedRuns(text, 2'999, 2), "pp");
}

/// Random edits beside the same edits of a std::string; earlier values are kept and must not change.
TEST(Text, BehavesAsAStringUnderRandomEdits) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const auto upTo = [&](std::size_t most) { return static_cast<std::size_t>(random()) % (most + 1); };
        const std::size_t scale = seed % 3 == 0 ? 10'000 : 30;
        std::string model;
        Text text;
        std::vector<std::pair<Text, std::string>> kept;
        for (int step = 0; step < 400; ++step) {
            const std::size_t offset = upTo(model.size());
            const std::size_t length = std::min(upTo(scale), model.size() - offset);
            switch (upTo(5)) {
            case 0:
            case 1: {
                const std::string piece(upTo(scale), static_cast<char>('a' + upTo(25)));
                text = text.replaced(offset, length, piece);
                model.replace(offset, length, piece);
                break;
            }
            case 2: // a part of the text put into itself, shared
                if (model.size() < 200'000) {
                    const std::size_t from = upTo(model.size());
                    const std::size_t count = upTo(model.size() - from);
                    text = text.replaced(offset, length, text.slice(from, count));
                    model.replace(offset, length, std::string(model, from, count));
                }
                break;
            case 3:
                text = text.replaced(offset, length, "");
                model.erase(offset, length);
                break;
            case 4:
                ASSERT_EQ(joinedRuns(text, offset, length), model.substr(offset, length));
                ASSERT_EQ(joinedRuns(text.slice(offset, length)), model.substr(offset, length));
                break;
            default:
                if (step % 7 == 0) {
                    ASSERT_EQ(text.view(), model);
                } else if (!kept.empty() && step % 3 == 0) { // as undo would
                    std::tie(text, model) = kept[upTo(kept.size() - 1)];
                }
                break;
            }
            ASSERT_EQ(text.size(), model.size());
            if (step % 10 == 0) {
                kept.emplace_back(text, model);
            }
        }
        ASSERT_EQ(text.view(), model);
        for (const auto &[earlier, bytes] : kept) {
            ASSERT_EQ(joinedRuns(earlier), bytes);
            ASSERT_EQ(earlier, Text(bytes));
        }
    }
}

} // namespace
} // namespace lexivore
