// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/updates/update_sheet.h"

#include "ui/controls/label.h"
#include "ui/controls/push_button.h"
#include "ui/controls/sheet_edges.h"
#include "ui/theme/metrics.h"
#include "ui/updates/release_notes_view.h"
#include "ui/updates/size_text.h"

#include <QVBoxLayout>

#include <utility>

namespace lexivore {

namespace {

constexpr int sheetWidth = 500;
constexpr int notesHeight = 220;

} // namespace

UpdateSheet::UpdateSheet(const AppcastItem &item, const QString &currentVersion, Updater::Origin origin)
    : Sheet(tr("Software Update"), sheetWidth), m_origin(origin) {
    setObjectName(QStringLiteral("updateSheet"));
    const QString title = tr("Lexivore %1 is available").arg(onOneLine(item.shortVersion));
    const QString details =
        tr("You have version %1. The download is %2 large.").arg(currentVersion, sizeText(item.length));
    setAccessibleDescription(title + ". " + details);
    addAboveBody(makeSymbolHeader(QStringLiteral("arrow.down.doc"), title, details));
    addBelowBody(makeFooter());

    const int padding = metrics::sheetPadding;
    body().setContentsMargins(padding, padding, padding, padding);
    auto *notes = new ReleaseNotesView(item);
    notes->setObjectName(QStringLiteral("releaseNotes"));
    if (notes->isEmpty()) {
        delete notes;
        body().addWidget(new Label(tr("There are no release notes."), FontRole::subheadline, &Theme::text2));
        return;
    }
    connect(notes, &ReleaseNotesView::linkChosen, this, &UpdateSheet::linkChosen);
    notes->setFixedHeight(heightFor(notesHeight, FontRole::subheadline, 10));
    body().addWidget(new Label(tr("Release notes"), FontRole::fieldLabel));
    body().addSpacing(4);
    body().addWidget(notes);
}

QWidget *UpdateSheet::makeFooter() {
    const auto button = [this](const QString &text, const char *name, PushButton::Kind kind,
                               void (UpdateSheet::*choice)()) {
        auto *made = new PushButton(text, kind);
        made->setObjectName(QLatin1String(name));
        connect(made, &PushButton::clicked, this, [this, choice] { choose(choice); });
        return made;
    };
    const auto plain = PushButton::Kind::plain;
    return makeButtonFooter(
        {button(tr("Skip This Version"), "skip", plain, &UpdateSheet::skipChosen)},
        {button(tr("Remind Me Later"), "later", plain, &UpdateSheet::laterChosen),
         button(tr("Install Update"), "install", PushButton::Kind::primary, &UpdateSheet::installChosen)});
}

void UpdateSheet::takeFocus() {
    const char *name = m_origin == Updater::Origin::byHand ? "install" : "later";
    findChild<PushButton *>(QLatin1String(name))->setFocus(Qt::OtherFocusReason);
}

void UpdateSheet::confirm() {
    if (m_origin == Updater::Origin::byHand) {
        choose(&UpdateSheet::installChosen);
    }
}

void UpdateSheet::cancel() { choose(&UpdateSheet::laterChosen); }

void UpdateSheet::choose(void (UpdateSheet::*choice)()) {
    if (!std::exchange(m_isAnswered, true)) {
        dismiss();
        emit(this->*choice)();
    }
}

} // namespace lexivore
