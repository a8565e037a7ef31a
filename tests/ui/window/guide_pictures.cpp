// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
// Draws what the user's guide shows, one PNG a feature: guide_pictures FOLDER [LANGUAGE]
#include "manager/transformation_manager.h"
#include "tests/support/memory_preferences.h"
#include "ui/editor/text_editor.h"
#include "ui/shell/lexivore_app.h"
#include "ui/theme/style.h"
#include "ui/translation.h"
#include "ui/window/window_state.h"

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTest>

using namespace lexivore;

namespace {

const char sample[] = "The quick brown fox jumps over the lazy dog.\n"
                      "  Pack my box with five dozen liquor jugs.\n"
                      "How vexingly quick daft zebras jump!\n"
                      "\n"
                      "The quick brown fox jumps over the lazy dog.\n"
                      "Sphinx of black quartz, judge my vow.\n"
                      "  The five boxing wizards jump quickly.\n"
                      "Crazy Frederick bought many very exquisite opal jewels.\n";

class GuidePictures {
public:
    explicit GuidePictures(QString folder) : m_folder(std::move(folder)) {
        m_app.window().resize(1280, 800);
        m_app.window().show();
        QApplication::setActiveWindow(&m_app.window());
        manager().setCurrentText(Text(std::string_view(sample)));
    }

    void take() {
        m_app.window().state().setSelectedCategory(TransformationCategory::lines);
        save("window");
        takeSearches();
        takeOperations();
        takeSheets();
        takeTools();
        takeMenus();
    }

private:
    void takeSearches() {
        m_app.window().state().setSearchText("base64");
        save("search");
        m_app.window().state().setSearchText({});
        find<TextEditor>("editor")->document().select(4, 9);
        post(notification::find);
        save("find");
        close();
    }

    void takeOperations() {
        post(notification::applyTransformation, "wrap-lines");
        save("parameters");
        close();
        post(notification::toggleStackOperationMode);
        for (const char *id : {"trim-lines", "remove-empty-lines", "remove-duplicates", "sort-lines"}) {
            post(notification::applyTransformation, id);
        }
        manager().toggleOperation(2);
        save("stack");
        post(notification::showRecipeSheet);
        save("save-recipe");
        close();
        manager().saveRecipe("Tidy list");
        post(notification::showManageRecipes);
        save("manage-recipes");
        close();
        manager().toggleFavorite("trim-lines");
        manager().toggleFavorite("sort-lines");
        m_app.window().state().setSelectedCategory(TransformationCategory::favorites);
        save("favorites");
    }

    void takeSheets() {
        m_app.window().state().setShowCopyConfirmation(true);
        save("copied");
        m_app.window().state().setShowCopyConfirmation(false);
        if (auto *settings = find<QWidget>("editorSettings")) {
            QTest::mouseClick(settings, Qt::LeftButton);
            save("settings");
            close();
        }
        m_app.window().state().setSelectedCategory(TransformationCategory::addRemove);
        save("add-and-remove");
        m_app.window().state().setSelectedCategory(TransformationCategory::encoding);
        save("encoding");
    }

    void takeTools() {
        for (const char *id : {"statistics", "character-frequency", "reading-time", "readability"}) {
            post(notification::runTool, id);
            save(id);
            close();
        }
    }

    void takeMenus() {
        for (QMenu *menu : m_app.window().menuBar()->findChildren<QMenu *>()) {
            if (menu->objectName().startsWith("menu.")) {
                menu->adjustSize();
                menu->grab().save(path(QString("menu-") + menu->objectName().mid(5)));
            }
        }
    }

    TransformationManager &manager() { return m_app.transformationManager(); }

    template<typename Widget> Widget *find(const QString &name) { return m_app.window().findChild<Widget *>(name); }

    void post(const char *name, const QVariant &object = {}) { m_app.notificationCenter().post(name, object); }

    void close() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); }

    [[nodiscard]] QString path(const QString &name) const {
        return QDir(m_folder).filePath(QString(name).replace(QRegularExpression("[^a-zA-Z-]+"), "-") + ".png");
    }

    void save(const QString &name) {
        QTest::qWait(400); // until what fades or folds has done so
        if (!m_app.window().grab().save(path(name))) {
            qFatal("%s could not be written.", qPrintable(path(name)));
        }
    }

    QString m_folder;
    test::MemoryPreferences m_preferences;
    LexivoreApp m_app{m_preferences};
};

} // namespace

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    if (argc != 2 && argc != 3) {
        qFatal("usage: guide_pictures FOLDER [LANGUAGE]");
    }
    installTranslations(application, {argc == 3 ? argv[2] : "en"});
    QDir().mkpath(argv[1]);
    QFont font = QApplication::font();
    font.setPointSizeF(10);
    QApplication::setFont(font);
    Style::install(application);
    GuidePictures(argv[1]).take();
    return 0;
}
