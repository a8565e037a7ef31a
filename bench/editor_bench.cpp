// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Times the editor through its widget, from the call or the event to the finished paint, beside the toolkit's own.
// Usage: lexivore_editor_bench [--json FILE] [--quick] [--no-stock] [--only PART_OF_A_CASE]
// Exits with 1 when a limit is missed. The stock editor is left out where a text would keep it busy for minutes.
#include "ui/editor/text_editor.h"
#include "ui/text_conversion.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFontDatabase>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QScrollBar>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

using namespace lexivore;

namespace {

constexpr std::size_t megabyte = 1'000'000;

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

void paint(const Subject &subject) {
    QApplication::sendPostedEvents();
    subject.widget->viewport()->repaint();
}

void press(const Subject &subject, int key, Qt::KeyboardModifiers modifiers = {}, const QString &text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(subject.widget, &event);
}

double milliseconds(const std::function<void()> &run) {
    QElapsedTimer timer;
    timer.start();
    run();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

struct Times {
    double median = 0;
    double worst = 0;
};

Times repeat(int times, const std::function<void(int)> &run) {
    std::vector<double> all;
    for (int i = 0; i < times; ++i) {
        all.push_back(milliseconds([&] { run(i); }));
    }
    std::sort(all.begin(), all.end());
    return {all[all.size() / 2], all.back()};
}

class Report {
public:
    void add(const std::string &text, const std::string &action, double value, std::optional<double> limit,
             std::optional<double> stock, const char *unit = "ms") {
        const bool isMissed = limit && value > *limit;
        m_isMissed = m_isMissed || isMissed;
        QJsonObject row{{"case", QString::fromStdString(text)},
                        {"action", QString::fromStdString(action)},
                        {"value", value},
                        {"limit", limit ? QJsonValue(*limit) : QJsonValue()},
                        {"unit", unit},
                        {"stock", stock ? QJsonValue(*stock) : QJsonValue()}};
        m_rows.append(row);
        std::printf("%-28s %-30s %9.2f %s  limit %-8s stock %-10s %s\n", text.c_str(), action.c_str(), value, unit,
                    limit ? std::to_string(*limit).substr(0, 6).c_str() : "-",
                    stock ? std::to_string(*stock).substr(0, 8).c_str() : "-", isMissed ? "MISSED" : "");
        std::fflush(stdout);
    }
    void write(const QString &path) const {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(m_rows).toJson()) < 0) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        }
    }
    [[nodiscard]] bool isMissed() const { return m_isMissed; }

private:
    QJsonArray m_rows;
    bool m_isMissed = false;
};

struct Case {
    std::string name;
    std::string text;
    double showLimit = 0;
    double medianLimit = 16;
    double worstLimit = 33;
    bool isLarge = false;
    bool stockCanShow = true; ///< In less than minutes.
    bool stockCanEdit = true;
};

struct Action {
    std::string name;
    std::function<void(const Subject &, int)> prepare; ///< Not timed.
    std::function<void(const Subject &, int)> run;
    bool onLarge = false;
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
    const auto nothing = [](const Subject &, int) {};
    const auto type = [](const Subject &subject, int) { press(subject, Qt::Key_X, {}, "x"); };
    return {
        {"keystroke at the start", place(0), type, true},
        {"keystroke in the middle", place(0.5), type, true},
        {"keystroke at the end", place(1), type, true},
        {"click", place(0.5), click, false},
        {"End",
         [](const Subject &subject, int i) {
             subject.placeCaret(static_cast<double>(i * 37 % 100) / 100);
             paint(subject);
         },
         [](const Subject &subject, int) { press(subject, Qt::Key_End); }, false},
        {"Page Down", place(0), [](const Subject &subject, int) { press(subject, Qt::Key_PageDown); }, false},
        {"select all", place(0.5), [](const Subject &subject, int) { subject.selectAll(); }, false},
        {"resize", place(0.5),
         [](const Subject &subject, int i) {
             subject.widget->resize(600 + i % 50, 600);
             QApplication::sendPostedEvents();
         },
         false},
        {"scroll to the end",
         [](const Subject &subject, int) {
             subject.widget->verticalScrollBar()->setValue(0);
             paint(subject);
         },
         [](const Subject &subject, int) {
             QScrollBar *const bar = subject.widget->verticalScrollBar();
             bar->setValue(bar->maximum());
         },
         true},
        {"drag of the scroll bar", nothing,
         [](const Subject &subject, int i) {
             QScrollBar *const bar = subject.widget->verticalScrollBar();
             bar->setSliderDown(true);
             bar->setSliderPosition(static_cast<int>(static_cast<double>(bar->maximum()) * (i * 7 % 200) / 200));
         },
         true},
    };
}

Times timeOf(const Action &action, const Subject &subject, int rounds) {
    std::vector<double> all;
    for (int i = 0; i < rounds; ++i) {
        action.prepare(subject, i);
        all.push_back(milliseconds([&] {
            action.run(subject, i);
            paint(subject);
        }));
    }
    subject.widget->verticalScrollBar()->setSliderDown(false);
    std::sort(all.begin(), all.end());
    return {all[all.size() / 2], all.back()};
}

/// Resident memory of this process in bytes.
double residentBytes() {
    QFile file("/proc/self/statm");
    if (!file.open(QIODevice::ReadOnly)) {
        return 0;
    }
    return file.readAll().split(' ').value(1).toDouble() * 4096;
}

void measure(const Case &example, const Subject &ours, const Subject *stock, bool isQuick, Report &report) {
    const Text text{std::string_view(example.text)};
    const Text empty;
    const double copy = repeat(5, [&](int) { TextBuffer copied(std::string_view(example.text)); }).median;
    const auto showTimes = [&](const Subject &subject, int rounds) {
        std::vector<double> all;
        for (int i = 0; i < rounds; ++i) {
            subject.show(empty);
            paint(subject);
            all.push_back(milliseconds([&] {
                subject.show(text);
                paint(subject);
            }));
        }
        std::sort(all.begin(), all.end());
        return all[all.size() / 2];
    };
    const double shown = showTimes(ours, 5);
    std::optional<double> stockShown;
    if (stock != nullptr && example.stockCanShow) {
        stockShown = showTimes(*stock, 1);
    }
    report.add(example.name, "show a new text", shown, example.showLimit, stockShown);
    if (example.isLarge) {
        report.add(example.name, "show, in copies of the text", shown / copy, 3, {}, "copies");
    }
    for (const Action &action : actions()) {
        if (example.isLarge && !action.onLarge) {
            continue;
        }
        const Times times = timeOf(action, ours, isQuick ? 40 : 200);
        std::optional<Times> stockTimes;
        if (stock != nullptr && example.stockCanShow && example.stockCanEdit) {
            stockTimes = timeOf(action, *stock, isQuick ? 3 : 10);
        }
        const auto of = [&](double Times::*member) {
            return stockTimes ? std::optional((*stockTimes).*member) : std::nullopt;
        };
        report.add(example.name, action.name + ", median", times.median, example.medianLimit, of(&Times::median));
        report.add(example.name, action.name + ", worst", times.worst, example.worstLimit, of(&Times::worst));
    }
    if (stock != nullptr) {
        stock->show(empty);
    }
    ours.show(empty);
}

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const bool isQuick = arguments.contains("--quick");
    const bool hasStock = !arguments.contains("--no-stock");

    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    TextEditor editor;
    editor.setFont(font);
    editor.resize(600, 600);
    editor.show();
    editor.activateWindow();
    editor.setFocus();
    QPlainTextEdit plain;
    plain.setFont(font);
    plain.resize(600, 600);
    if (hasStock) {
        plain.show();
    }
    application.processEvents();

    const Subject ours{&editor, [&](const Text &text) { editor.setText(text); },
                       [&](double fraction) {
                           editor.document().setCaret(
                               static_cast<std::size_t>(fraction * static_cast<double>(editor.text().size())));
                           editor.ensureCaretVisible();
                       },
                       [&] { editor.selectAll(); }};
    const Subject theirs{&plain, [&](const Text &text) { plain.setPlainText(toQString(text.view())); },
                         [&](double fraction) {
                             QTextCursor cursor = plain.textCursor();
                             const int last = plain.document()->characterCount() - 1;
                             cursor.setPosition(static_cast<int>(fraction * last));
                             plain.setTextCursor(cursor);
                         },
                         [&] { plain.selectAll(); }};

    Report report;
    const double before = residentBytes();
    {
        Text text{std::string_view(manyLines(100 * megabyte))};
        editor.setText(text);
        paint(ours);
        const Text historyEntry = text;
        press(ours, Qt::Key_X, {}, "x");
        paint(ours);
        report.add("100 MB, lines", "memory with a history entry", (residentBytes() - before) / (100.0 * megabyte), 3,
                   {}, "texts");
        editor.setText(Text());
    }
    const qsizetype only = arguments.indexOf("--only");
    const std::string wanted = only != -1 ? arguments.value(only + 1).toStdString() : std::string();
    const auto run = [&](const Case &example) {
        if (example.name.find(wanted) == std::string::npos) {
            return;
        }
        measure(example, ours, hasStock ? &theirs : nullptr, isQuick, report);
    };
    run({"10 MB, 130,000 lines", manyLines(10 * megabyte), 30});
    run({"10 MB, one line with spaces", lineWithSpaces(10 * megabyte), 30, 16, 33, false, true, false});
    run({"10 MB, one line without", lineWithout(10 * megabyte), 30, 16, 33, false, false, false});
    run({"10 MB, scripts in one line", mixedScripts(10 * megabyte), 60, 33, 33, false, false, false});
    run({"100 MB, lines", manyLines(100 * megabyte), 150, 16, 50, true, true, true});
    run({"100 MB, one line with spaces", lineWithSpaces(100 * megabyte), 150, 16, 50, true, false, false});
    run({"100 MB, one line without", lineWithout(100 * megabyte), 150, 16, 50, true, false, false});

    const qsizetype json = arguments.indexOf("--json");
    if (json != -1 && json + 1 < arguments.size()) {
        report.write(arguments[json + 1]);
    }
    return report.isMissed() ? 1 : 0;
}
