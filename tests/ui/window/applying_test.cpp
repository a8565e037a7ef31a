// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/window_fixture.h"
#include "ui/flows/transformation_flow.h"

namespace lexivore {
namespace {

using Applying = WindowTest;

/// A programming error: both of its parameters have one key.
struct AsksTwiceForTheSame : TextTransformation {
    AsksTwiceForTheSame() : TextTransformation("twice", "Twice", "", TransformationCategory::lines, "number") {}
    std::vector<TransformationParameter> parameters() const override {
        return {{"width", "Width", "1", ""}, {"width", "Width again", "2", ""}};
    }
    TextBuffer apply(std::string_view, const ParameterMap &) const override { return {}; }
};

TEST_F(Applying, AClickAppliesATransformationWithoutParametersAtOnce) {
    setText("hello");
    click("transformation.uppercase");
    EXPECT_EQ(text(), "HELLO");
    ASSERT_EQ(manager().appliedOperations().size(), 1U);
    EXPECT_EQ(manager().appliedOperations()[0].transformation, "uppercase");
}

TEST_F(Applying, InSingleModeEachClickStartsAgainFromTheBaseText) {
    setText("Hello World");
    click("transformation.uppercase");
    click("transformation.snakecase");
    EXPECT_EQ(text(), "hello_world");
    EXPECT_EQ(manager().appliedOperations().size(), 1U);
}

TEST_F(Applying, InSingleModeTheBaseTextIsBackBeforeParametersAreAskedFor) {
    setText("Hello");
    click("transformation.uppercase");
    center().post(notification::applyTransformation, QString("add-prefix"));
    ASSERT_TRUE(isShown("parameterSheet"));
    EXPECT_EQ(text(), "Hello");
    EXPECT_TRUE(manager().appliedOperations().empty());
    EXPECT_EQ(manager().history().undoStack().size(), 1U) << "without a step of its own";
    type("> ");
    press(Qt::Key_Return);
    EXPECT_EQ(text(), "> Hello");
    EXPECT_EQ(manager().appliedOperations().size(), 1U);
}

TEST_F(Applying, InStackModeEachClickAddsToTheStack) {
    setText("Hello World");
    useStackMode();
    click("transformation.snakecase");
    click("transformation.uppercase");
    EXPECT_EQ(text(), "HELLO_WORLD");
    EXPECT_EQ(manager().appliedOperations().size(), 2U);
}

TEST_F(Applying, PausedNothingIsApplied) {
    setText("hello");
    click("pause");
    click("transformation.uppercase");
    center().post(notification::applyTransformation, QString("uppercase"));
    EXPECT_EQ(text(), "hello");
    EXPECT_TRUE(manager().appliedOperations().empty());
}

TEST_F(Applying, TheNotificationAppliesLikeAClick) {
    setText("hello");
    center().post(notification::applyTransformation, QString("uppercase"));
    EXPECT_EQ(text(), "HELLO");
}

TEST_F(Applying, ANotificationWithoutAKnownIdIsIgnored) {
    setText("hello");
    center().post(notification::applyTransformation);
    center().post(notification::applyTransformation, 7);
    center().post(notification::applyTransformation, QString("no-such-id"));
    EXPECT_EQ(text(), "hello");
}

TEST_F(Applying, TwoParametersWithOneKeyStopTheProgram) {
    auto *flow = window().findChild<TransformationFlow *>();
    ASSERT_NE(flow, nullptr);
    testing::FLAGS_gtest_death_test_style = "fast";
    EXPECT_DEATH(flow->select(std::make_shared<AsksTwiceForTheSame>()), "Duplicate values for key: 'width");
}

} // namespace
} // namespace lexivore
