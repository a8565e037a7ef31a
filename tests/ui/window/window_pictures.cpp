// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
// Draws the main window in its states into one PNG each, to look at: light, dark, and with letters of 200 %.
// window_pictures <folder>
#include "manager/transformation_manager.h"
#include "tests/support/memory_preferences.h"
#include "ui/editor/text_editor.h"
#include "ui/shell/lexivore_app.h"
#include "ui/theme/style.h"
#include "ui/theme/theme.h"
#include "ui/window/window_state.h"

#include <QApplication>
#include <QDir>
#include <QTest>

using namespace lexivore;

namespace {

const char sample[] = "Ada Lovelace: first published algorithm\nAlan Turing: the universal machine\n"
                      "Barbara Liskov: data abstraction\nDonald Knuth: literate programming\n"
                      "Edsger Dijkstra: structured programs\nFrances Allen: optimizing compilers\n"
                      "Grace Hopper: the first compiler\nHedy Lamarr: frequency hopping\n"
                      "John Backus: Fortran and its grammar\nKatherine Johnson: orbital mechanics\n"
                      "Margaret Hamilton: flight software\nNiklaus Wirth: Pascal and Modula\n"
                      "Radia Perlman: the spanning tree\nShafi Goldwasser: zero knowledge\n"
                      "Sophie Wilson: the first ARM design\nStephen Kleene: regular expressions\n"
                      "Tony Hoare: quicksort and monitors\nVint Cerf: packets that find a way\n"
                      "Wang Xuan: typesetting for Chinese\nYukihiro Matsumoto: happy programmers";

/// The window with what stands in it, for one picture after the other.
class Pictures {
public:
    Pictures(QString folder, QString theme) : m_folder(std::move(folder)), m_theme(std::move(theme)) {
        m_app.window().show();
        QApplication::setActiveWindow(&m_app.window());
        fill();
    }

    void take() {
        save("main-window");
        m_app.window().resize(1008, 640);
        save("main-window-narrow");
        m_app.window().resize(m_app.window().minimumSize());
        save("main-window-smallest");
        m_app.window().resize(1280, 800);
        post(notification::toggleOperations);
        save("panel-hidden");
        post(notification::toggleOperations);
        takeToast();
        takeSheet();
        takeEmptyStates();
    }

private:
    void fill() {
        TransformationManager &manager = m_app.transformationManager();
        manager.setCurrentText(Text(std::string_view(sample)));
        m_app.window().state().setSelectedCategory(TransformationCategory::lines);
        post(notification::toggleStackOperationMode);
        for (const char *id : {"trim-lines", "uppercase"}) {
            post(notification::applyTransformation, id);
        }
        manager.applyTransformation(*manager.findTransformation("replace-regex"),
                                    {{"pattern", "(\\w+), (\\w+)"}, {"replace", "$2 $1"}});
        post(notification::applyTransformation, "sort-lines");
        manager.toggleOperation(1);
        manager.toggleFavorite("trim-lines");
        hover("category.Sorting");
        hover("transformation.break-after-sentence");
        auto *editor = find<TextEditor>("editor");
        const std::size_t begin = editor->text().view().find("the first compiler");
        editor->document().select(begin, begin + std::string_view("the first compiler").size());
        QTest::qWait(1800); // until the star shows
    }

    void takeToast() {
        m_app.window().state().setShowCopyConfirmation(true);
        save("toast");
        m_app.window().state().setShowCopyConfirmation(false);
    }

    void takeSheet() {
        post(notification::applyTransformation, "replace-regex");
        save("sheet-in-window");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    }

    void takeEmptyStates() {
        m_app.transformationManager().clearAll();
        m_app.window().state().setSelectedCategory(std::nullopt);
        save("empty-select-a-category");
        m_app.window().state().setSearchText("rot13");
        save("empty-no-results");
        m_app.window().state().setSearchText({});
    }

    template<typename Widget = QWidget> Widget *find(const QString &name) {
        return m_app.window().findChild<Widget *>(name);
    }

    void post(const char *name, const QVariant &object = {}) { m_app.notificationCenter().post(name, object); }

    void hover(const QString &name) {
        QWidget *widget = find(name);
        if (widget == nullptr) {
            qFatal("There is no %s.", qPrintable(name));
        }
        QEnterEvent enter(QPointF(2, 2), QPointF(2, 2), widget->mapToGlobal(QPointF(2, 2)));
        QApplication::sendEvent(widget, &enter);
    }

    void save(const QString &name) {
        QTest::qWait(350); // until what fades or folds has done so
        const QString path = QDir(m_folder).filePath(name + "-" + m_theme + ".png");
        if (!m_app.window().grab().save(path)) {
            qFatal("%s could not be written.", qPrintable(path));
        }
    }

    QString m_folder;
    QString m_theme;
    test::MemoryPreferences m_preferences;
    LexivoreApp m_app{m_preferences};
};

} // namespace

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    if (argc != 2) {
        qFatal("usage: window_pictures FOLDER");
    }
    QDir().mkpath(argv[1]);
    QFont font = QApplication::font();
    font.setPointSizeF(10);
    QApplication::setFont(font);
    Style::install(application);
    Pictures(argv[1], "light").take();
    QApplication::setPalette(paletteOf(darkTheme()));
    Pictures(argv[1], "dark").take();
    font.setPointSizeF(20);
    QApplication::setFont(font);
    QApplication::setPalette(paletteOf(lightTheme()));
    Pictures(argv[1], "large").take();
    return 0;
}
