// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Random actions of every kind through the widgets, and after each one what must hold whatever was done.
// LEXIVORE_LONG_RUN in the environment asks for that many actions (scripts/long-run), LEXIVORE_TEST_SEED for others.
#include "tests/support/allocation.h"
#include "tests/ui/window/long_run_actions.h"

#include "engine/primitives/text_buffer.h"
#include "ui/editor/text_editor.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QPixmapCache>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <iostream>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace lexivore {
namespace {

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::microseconds;

constexpr std::size_t kilobyte = 1024;
constexpr QSize usualSize(1280, 800);
/// What may be kept beside: each size of letters that was shown has caches of some hundred kilobytes in the toolkit.
constexpr std::size_t fontCaches = 2048 * kilobyte;

/// What this process has worked, however busy the others were.
Microseconds workTime() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::duration_cast<Microseconds>(std::chrono::seconds(time.tv_sec) +
                                                    std::chrono::nanoseconds(time.tv_nsec));
}

/// What the enabled operations make of the base text, one after the other. As in a run, a failing one changes nothing.
Text stackOver(const TransformationManager &manager) {
    Text text = manager.originalText();
    for (const AppliedOperation &operation : manager.appliedOperations()) {
        const TransformationPointer found = manager.findTransformation(operation.transformation);
        if (operation.isEnabled && found != nullptr) {
            try {
                text = Text(found->apply(text.view(), operation.parameters));
            } catch (const TransformationError &) {
                continue;
            }
        }
    }
    return text;
}

/// All that the user sees of the manager.
struct Seen {
    Text text;
    std::vector<AppliedOperation> operations;
    std::size_t undoDepth = 0;

    explicit Seen(const TransformationManager &manager)
        : text(manager.currentText()), operations(manager.appliedOperations()),
          undoDepth(manager.history().undoStack().size()) {}
    [[nodiscard]] bool isSameAs(const Seen &other) const {
        return text == other.text && haveSameFields(operations, other.operations) && undoDepth == other.undoDepth;
    }
};

long median(std::span<const Microseconds> times) {
    std::vector<Microseconds> sorted(times.begin(), times.end());
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::nth_element(sorted.begin(), middle, sorted.end());
    return middle == sorted.end() ? 0 : middle->count();
}

/// How long the actions of a kind took, those of the first and those of the second half of a run.
struct Times {
    std::vector<Microseconds> early;
    std::vector<Microseconds> late;
};

/// What is kept for later, though it is not needed: by the toolkit of letters and pictures, by the engine for a text.
void emptyCaches() {
    QPixmapCache::clear();
    // What is known of fonts is forgotten when one is taken away.
    const int font = QFontDatabase::addApplicationFont("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf");
    ASSERT_TRUE(QFontDatabase::removeApplicationFont(font)) << "the font is not there";
    TextBuffer::releaseSpareMemory();
    QCoreApplication::processEvents();
}

class LongRun : public LongRunActions {
protected:
    void check() {
        ASSERT_TRUE(find<TextEditor>("editor")->text() == manager().currentText()) << "the editor shows another text";
        checkStack();
        checkUndoAndRedo();
    }

    std::map<std::string, Times> times;

private:
    void checkStack();
    void checkUndoAndRedo();
};

/// Running the stack again gives what a manager that has done nothing else would have. Paused, it is not run.
void LongRun::checkStack() {
    const std::vector<AppliedOperation> &operations = manager().appliedOperations();
    if (operations.empty()) {
        return;
    }
    if (!state().operationsEnabled()) {
        ASSERT_TRUE(textMayDifferFromStack() || manager().currentText() == manager().originalText())
            << "paused, another text than the base text is shown";
        return;
    }
    const bool isRepeatable = std::ranges::none_of(operations, [this](const AppliedOperation &operation) {
        const TransformationPointer found = manager().findTransformation(operation.transformation);
        return found != nullptr && (found->isRandom() || found->hasTimeLimit());
    });
    if (!isRepeatable) {
        return;
    }
    const Text expected = stackOver(manager());
    if (!textMayDifferFromStack()) {
        ASSERT_TRUE(manager().currentText() == expected) << "the stack makes another text than is shown";
    }
    if (manager().currentText() == expected || below(4) == 0) { // else the edits by hand would never live long
        manager().reapplyOperations();
        ASSERT_TRUE(manager().currentText() == expected) << "the stack runs to another text";
    }
}

void LongRun::checkUndoAndRedo() {
    const Seen before(manager());
    const bool wasPaused = !state().operationsEnabled();
    center().post(notification::undoTransformation);
    if (before.isSameAs(Seen(manager()))) {
        return; // there was nothing to undo
    }
    center().post(notification::redoTransformation);
    const Seen after(manager());
    ASSERT_TRUE(after.text == before.text) << "undo and redo lead to another text";
    ASSERT_TRUE(haveSameFields(after.operations, before.operations)) << "undo and redo lead to another stack";
    ASSERT_EQ(after.undoDepth, before.undoDepth) << "undo and redo lead to another history";
    ASSERT_EQ(!state().operationsEnabled(), wasPaused);
    ASSERT_TRUE(find<TextEditor>("editor")->text() == manager().currentText()) << "the editor shows another text";
}

TEST_F(LongRun, HoldsItsPromisesAndDoesNotGrow) {
    const std::size_t actions = wanted("LEXIVORE_LONG_RUN", 300);
    const std::size_t warmUp = actions / 10; // what is made once: caches of fonts, glyphs and rows
    std::size_t allocated[2] = {};
    qsizetype objects[2] = {};
    std::size_t textsSeen = 0;
    std::vector<Microseconds> allTimes;
    startAnew();
    const auto begin = Clock::now();
    for (std::size_t done = 0; done < warmUp + actions; ++done) {
        const Microseconds start = workTime();
        const std::string kind = act();
        const Microseconds time = workTime() - start;
        ASSERT_FALSE(HasFatalFailure()) << "action " << done << " of seed " << seed() << ": " << description();
        check();
        ASSERT_FALSE(HasFatalFailure()) << "after action " << done << " of seed " << seed() << ": " << description();
        textsSeen += manager().currentText().size();
        const bool isEarly = done < warmUp + actions / 2;
        if (done >= warmUp) {
            allTimes.push_back(time);
            (isEarly ? times[kind].early : times[kind].late).push_back(time);
        }
        const bool endsHalf = done + 1 == warmUp + actions / 2 || done + 1 == warmUp + actions;
        if (endsHalf) {
            const std::size_t half = isEarly ? 0 : 1;
            startAnew();
            objects[half] = window().findChildren<QObject *>().size();
            const std::size_t whileRunning = test::allocatedBytes();
            window().resize(usualSize); // in which the next one opens, whether it has been remembered or not
            preferences.clear();        // the recipes with which the window would start
            restart();                  // what could be undone goes, and whatever else the window had gathered
            useStackMode();
            setText("as before");
            ASSERT_NO_FATAL_FAILURE(emptyCaches());
            allocated[half] = test::allocatedBytes();
            std::cout << done + 1 << " actions: " << objects[half] << " objects, " << allocated[half] / kilobyte
                      << " KB; before the window went " << whileRunning / kilobyte << " KB with the history of "
                      << textsSeen / kilobyte << " KB of texts\n";
        }
    }
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begin).count();
    std::cout << warmUp + actions << " actions in " << seconds << " s, seed " << seed() << "\n";
    const std::span<const Microseconds> quarters(allTimes);
    const long first = median(quarters.first(actions / 4));
    const long last = median(quarters.last(actions / 4));
    std::cout << "an action: median " << first << " us in the first quarter, " << last << " us in the last\n";
    const bool isLong = actions >= 2000; // fewer do not tell a slow-down from chance
    for (const auto &[kind, taken] : times) {
        const long early = median(taken.early);
        const long late = median(taken.late);
        std::cout << kind << ": " << taken.early.size() + taken.late.size() << " times, median " << early
                  << " us, then " << late << " us\n";
        if (isLong && taken.late.size() >= 40) {
            EXPECT_LT(late, 2 * early + 5000) << kind << " becomes slower";
        }
    }
    if (isLong) {
        EXPECT_LT(last, 2 * first + 1000) << "everything becomes slower";
    }
    EXPECT_LE(objects[1], objects[0] + 20) << "something piles up in the window";
    EXPECT_LT(allocated[1], allocated[0] + fontCaches + actions * 50) << "something piles up in memory";
}

} // namespace
} // namespace lexivore
