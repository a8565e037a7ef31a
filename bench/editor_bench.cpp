// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Times one editor on one text through its widget, from the call or the event to the finished paint.
// Usage: editor_bench ours|stock lines|spaces|endless|scripts|memory MEGABYTES [--quick] [--cpu]
// Writes a row of JSON for every action as soon as it is measured, so that who waits can stop waiting: the stock editor
// takes minutes for some. bench/editor.py runs both editors on every text.
#include "manager/text_conversion.h"
#include "ui/editor/text_editor.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace lexivore;

namespace {

constexpr std::size_t megabyte = 1'000'000;
/// The slower editor is not asked as often: no action takes much longer than this.
constexpr double mostMilliseconds = 2000;

std::string repeated(std::string_view piece, std::size_t bytes) {
    std::string text;
    text.reserve(bytes + piece.size());
    while (text.size() < bytes) {
        text += piece;
    }
    return text;
}

std::string manyLines(std::size_t bytes) {
    std::mt19937 dice(1);
    std::string text;
    text.reserve(bytes + 200);
    while (text.size() < bytes) {
        const std::size_t words = 6 + dice() % 13;
        for (std::size_t i = 0; i < words; ++i) {
            text += "entry" + std::to_string(dice() % 100) + (i + 1 == words ? "\n" : " ");
        }
    }
    return text;
}

std::string lineWithSpaces(std::size_t bytes) { return repeated("lorem ipsum dolor sit amet, ", bytes); }
std::string lineWithout(std::size_t bytes) { return repeated("TG9yZW0gaXBzdW0gZG9sb3Igc2l0IGFtZXQ", bytes); }
std::string mixedScripts(std::size_t bytes) {
    return repeated("हिन्दी में क्षत्रिय विद्यार्थी السلام عليكم ورحمة الله 中文字符串日本語テキスト "
                    "👩‍👩‍👧👍🏽🇩🇪 ",
                    bytes);
}

/// One editor, ours or the toolkit's, as the measurements drive it.
struct Subject {
    QAbstractScrollArea *widget = nullptr;
    std::function<void(const Text &)> show;
    std::function<void(double)> placeCaret; ///< At a fraction of the text.
    std::function<void()> selectAll;
};

/// What was asked to be painted is painted now, not when the screen is refreshed next.
void paint(const Subject &subject) {
    QApplication::sendPostedEvents();
    QEvent request(QEvent::UpdateRequest);
    QApplication::sendEvent(subject.widget, &request);
}

void press(const Subject &subject, int key, Qt::KeyboardModifiers modifiers = {}, const QString &text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(subject.widget, &event);
}

clockid_t timedBy = CLOCK_MONOTONIC;

double milliseconds(const std::function<void()> &run) {
    const auto now = [] {
        timespec time{};
        clock_gettime(timedBy, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    };
    const double begin = now();
    run();
    return now() - begin;
}

/// What one action took, time after time.
struct Times {
    std::vector<double> all;

    /// Calls `prepare`, which is not timed, and `run` until it was often enough or has taken long enough.
    void measure(int rounds, const std::function<void(int)> &prepare, const std::function<void(int)> &run) {
        double spent = 0;
        for (int i = 0; i < rounds && spent < mostMilliseconds; ++i) {
            spent += milliseconds([&] { prepare(i); });
            all.push_back(milliseconds([&] { run(i); }));
            spent += all.back();
        }
        std::sort(all.begin(), all.end());
    }
    [[nodiscard]] double median() const { return all[all.size() / 2]; }
    [[nodiscard]] double worst() const { return all.back(); }
};

void write(const QJsonObject &row) {
    std::puts(QJsonDocument(row).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

void write(const char *action, const Times &times) {
    write({{"action", action},
           {"unit", "ms"},
           {"median", times.median()},
           {"worst", times.worst()},
           {"rounds", static_cast<int>(times.all.size())}});
}

struct Action {
    const char *name;
    std::function<void(const Subject &, int)> prepare;
    std::function<void(const Subject &, int)> run;
};

void click(const Subject &subject, int i) {
    const QPointF point(20 + i * 13 % 400, 20 + i * 29 % 500);
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const bool isPress = type == QEvent::MouseButtonPress;
        QMouseEvent event(type, point, subject.widget->viewport()->mapToGlobal(point), Qt::LeftButton,
                          isPress ? Qt::LeftButton : Qt::NoButton, {});
        QApplication::sendEvent(subject.widget->viewport(), &event);
    }
}

std::vector<Action> actions() {
    const auto place = [](double fraction) {
        return [fraction](const Subject &subject, int i) {
            if (i == 0) {
                subject.placeCaret(fraction);
                paint(subject);
            }
        };
    };
    const auto placeAnew = [](const Subject &subject, int i) {
        subject.placeCaret(static_cast<double>(i * 37 % 100) / 100);
        paint(subject);
    };
    const auto type = [](const Subject &subject, int) { press(subject, Qt::Key_X, {}, "x"); };
    const auto barToTop = [](const Subject &subject, int) {
        subject.widget->verticalScrollBar()->setValue(0);
        paint(subject);
    };
    return {
        {"keystroke at the start", place(0), type},
        {"keystroke in the middle", place(0.5), type},
        {"keystroke at the end", place(1), type},
        {"click", place(0.5), click},
        {"End", placeAnew, [](const Subject &subject, int) { press(subject, Qt::Key_End); }},
        {"Page Down", place(0), [](const Subject &subject, int) { press(subject, Qt::Key_PageDown); }},
        {"select all", placeAnew, [](const Subject &subject, int) { subject.selectAll(); }},
        {"resize", place(0.5), [](const Subject &subject, int i) { subject.widget->resize(600 + (i + 1) % 50, 600); }},
        {"scroll to the end", barToTop,
         [](const Subject &subject, int) {
             QScrollBar *const bar = subject.widget->verticalScrollBar();
             bar->setValue(bar->maximum());
         }},
        {"drag of the scroll bar", [](const Subject &, int) {},
         [](const Subject &subject, int i) {
             QScrollBar *const bar = subject.widget->verticalScrollBar();
             bar->setSliderDown(true);
             bar->setSliderPosition(static_cast<int>(static_cast<double>(bar->maximum()) * (i * 7 % 200) / 200));
         }},
    };
}

/// Resident memory of this process in bytes.
double residentBytes() {
    QFile file("/proc/self/statm");
    if (!file.open(QIODevice::ReadOnly)) {
        return 0;
    }
    return file.readAll().split(' ').value(1).toDouble() * 4096;
}

/// The bytes of one copy of the text are there already when the first count is taken.
void measureMemory(const Subject &subject, std::size_t bytes) {
    const double before = residentBytes();
    auto text = std::make_unique<Text>(std::string_view(manyLines(bytes)));
    const Text historyEntry = *text;
    subject.show(*text);
    text.reset();
    paint(subject);
    press(subject, Qt::Key_X, {}, "x");
    paint(subject);
    write({{"action", "text, view and a history entry"},
           {"unit", "texts"},
           {"median", (residentBytes() - before) / static_cast<double>(historyEntry.size())}});
}

/// Whether there is nothing to be seen but paper: an editor that shows nothing is quick at it.
bool isBlank(const Subject &subject) {
    const QImage picture = subject.widget->viewport()->grab().toImage();
    QImage paper = picture;
    paper.fill(picture.pixelColor(picture.width() - 1, picture.height() / 2));
    return picture == paper;
}

void measureTimes(const Subject &subject, const std::string &bytes, int rounds) {
    write({{"action", "ready"}});
    Times copies;
    copies.measure(
        5, [](int) {}, [&](int) { TextBuffer copied{std::string_view(bytes)}; });
    const Text text{std::string_view(bytes)};
    Times shows;
    shows.measure(
        5,
        [&](int) {
            subject.show({});
            paint(subject);
        },
        [&](int) {
            subject.show(text);
            paint(subject);
        });
    write({{"action", "look"}, {"is_blank", isBlank(subject)}});
    write("show a new text", shows);
    write(
        {{"action", "show, in copies of the text"}, {"unit", "copies"}, {"median", shows.median() / copies.median()}});
    for (const Action &action : actions()) {
        Times times;
        times.measure(
            rounds, [&](int i) { action.prepare(subject, i); },
            [&](int i) {
                action.run(subject, i);
                paint(subject);
            });
        subject.widget->verticalScrollBar()->setSliderDown(false);
        write(action.name, times);
    }
}

/// Shows the editor, with the keyboard, and waits for the X server: what it does not show is not painted.
void present(QAbstractScrollArea &widget) {
    widget.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    widget.resize(600, 600);
    widget.show();
    widget.activateWindow();
    widget.setFocus();
    while (!widget.windowHandle()->isExposed() || !widget.hasFocus()) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const std::map<std::string, std::string (*)(std::size_t)> texts{
        {"lines", manyLines}, {"spaces", lineWithSpaces}, {"endless", lineWithout}, {"scripts", mixedScripts}};
    const std::string kind = arguments.value(2).toStdString();
    const std::size_t bytes = arguments.value(3).toULongLong() * megabyte;
    if (bytes == 0 || (kind != "memory" && texts.count(kind) == 0)) {
        std::fputs("editor_bench: see the first lines of its source\n", stderr);
        return EXIT_FAILURE;
    }

    if (arguments.contains("--cpu")) {
        timedBy = CLOCK_PROCESS_CPUTIME_ID;
    }
    TextEditor editor;
    QPlainTextEdit plain;
    Subject subject;
    if (arguments.value(1) == "ours") {
        present(editor);
        subject = {&editor, [&](const Text &text) { editor.setText(text); },
                   [&](double fraction) {
                       const auto size = static_cast<double>(editor.text().size());
                       editor.document().setCaret(static_cast<std::size_t>(fraction * size));
                       editor.ensureCaretVisible();
                   },
                   [&] { editor.selectAll(); }};
    } else {
        present(plain);
        subject = {&plain, [&](const Text &text) { plain.setPlainText(toQString(text.view())); },
                   [&](double fraction) {
                       QTextCursor cursor = plain.textCursor();
                       const int last = plain.document()->characterCount() - 1;
                       cursor.setPosition(static_cast<int>(fraction * last));
                       plain.setTextCursor(cursor);
                   },
                   [&] { plain.selectAll(); }};
    }
    if (kind == "memory") {
        measureMemory(subject, bytes);
    } else {
        measureTimes(subject, texts.at(kind)(bytes), arguments.contains("--quick") ? 40 : 200);
    }
    return EXIT_SUCCESS;
}
