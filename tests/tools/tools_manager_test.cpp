// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/tools/printing.h"
#include "tools/tool_view_factory.h"
#include "tools/tools_manager.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace lexivore {

/// What the tests show results in.
class ToolView {
public:
    std::string kind;
    std::string toolId;
    Text text;
    TextStatistics statistics;
};

namespace {

/// Keeps the last view that was made.
class RecordingFactory final : public ToolViewFactory {
public:
    ToolView *makeStatisticsView(const StatisticsTool &tool, const Text &text,
                                 const TextStatistics &statistics) override {
        return made("statistics view", tool, text, statistics);
    }
    ToolView *makeCharacterFrequencyView(const CharacterFrequencyTool &tool, const Text &text) override {
        return made("character frequency view", tool, text, {});
    }
    ToolView *makeReadingTimeView(const ReadingTimeTool &tool, const Text &text) override {
        return made("reading time view", tool, text, {});
    }
    ToolView *makeReadabilityView(const ReadabilityTool &tool, const Text &text) override {
        return made("readability view", tool, text, {});
    }

    int count = 0;

private:
    ToolView *made(const char *kind, const TextTool &tool, const Text &text, const TextStatistics &statistics) {
        ++count;
        m_view = {kind, tool.id(), text, statistics};
        return &m_view;
    }
    ToolView m_view;
};

TEST(ToolsManager, OffersTheFourToolsInOrder) {
    const std::array<std::array<const char *, 4>, 4> expected = {{
        {"statistics", "Text Statistics", "Get detailed statistics about your text", "chart.bar.doc.horizontal"},
        {"character-frequency", "Character Frequency", "Analyze character frequency in text", "chart.bar.fill"},
        {"reading-time", "Reading Time Estimator", "Estimate reading and speaking time", "clock.fill"},
        {"readability", "Readability Score", "Calculate Flesch Reading Ease score", "chart.line.uptrend.xyaxis"},
    }};
    const ToolsManager manager;
    ASSERT_EQ(manager.tools().size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const TextTool &tool = *manager.tools()[i];
        EXPECT_EQ(tool.id(), expected[i][0]);
        EXPECT_EQ(tool.name(), expected[i][1]);
        EXPECT_EQ(tool.description(), expected[i][2]);
        EXPECT_EQ(tool.icon(), expected[i][3]);
    }
}

TEST(ToolsManager, EachToolHasTheTypeOfItsId) {
    const ToolsManager manager;
    EXPECT_NE(dynamic_cast<const StatisticsTool *>(manager.tools()[0].get()), nullptr);
    EXPECT_NE(dynamic_cast<const CharacterFrequencyTool *>(manager.tools()[1].get()), nullptr);
    EXPECT_NE(dynamic_cast<const ReadingTimeTool *>(manager.tools()[2].get()), nullptr);
    EXPECT_NE(dynamic_cast<const ReadabilityTool *>(manager.tools()[3].get()), nullptr);
}

TEST(ToolsManager, EachToolMakesItsOwnViewOfTheText) {
    const ToolsManager manager;
    const Text text(std::string_view("Hello world"));
    const std::array kinds = {"statistics view", "character frequency view", "reading time view", "readability view"};
    RecordingFactory factory;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const ToolView *const view = manager.tools()[i]->makeView(text, factory);
        ASSERT_NE(view, nullptr);
        EXPECT_EQ(view->kind, kinds[i]);
        EXPECT_EQ(view->toolId, manager.tools()[i]->id());
        EXPECT_TRUE(view->text.sharesAllWith(text));
    }
    EXPECT_EQ(factory.count, 4);
}

TEST(ToolsManager, StatisticsReachTheirViewComputed) {
    const ToolsManager manager;
    RecordingFactory factory;
    const ToolView *const view = manager.tools()[0]->makeView(Text(std::string_view("Hello world")), factory);
    EXPECT_EQ(view->statistics, (TextStatistics{11, 10, 2, 1, 1, 1, 1}));
}

TEST(ToolWrapper, HasTheIdentityOfItsTool) {
    const ToolsManager manager;
    const ToolWrapper statistics(manager.tools()[0]);
    EXPECT_EQ(statistics.id, "statistics");
    EXPECT_EQ(statistics.tool, manager.tools()[0]);
    EXPECT_EQ(statistics, ToolWrapper(ToolsManager().tools()[0]));
    EXPECT_FALSE(statistics == ToolWrapper(manager.tools()[1]));
}

} // namespace
} // namespace lexivore
