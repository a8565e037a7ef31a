// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/updates/update_flow.h"

#include "ui/sheets/alert_sheet.h"
#include "ui/sheets/sheet_layer.h"
#include "ui/updates/progress_sheet.h"
#include "ui/updates/quiet_moment.h"
#include "ui/updates/update_sheet.h"

#include <utility>

namespace lexivore {

UpdateFlow::UpdateFlow(Updater &updater, QWidget &window, std::function<void(const QUrl &)> openLink,
                       std::chrono::milliseconds quiet, QObject *parent)
    : QObject(parent), m_updater(updater), m_window(window), m_openLink(std::move(openLink)), m_quiet(quiet) {
    connect(&updater, &Updater::checkStarted, this, &UpdateFlow::showCheck);
    connect(&updater, &Updater::noUpdateFound, this, &UpdateFlow::showNoUpdate);
    connect(&updater, &Updater::noFeed, this, &UpdateFlow::showNoFeed);
    connect(&updater, &Updater::downloadStarted, this, &UpdateFlow::showDownload);
    connect(&updater, &Updater::handedOver, this, &UpdateFlow::showHandedOver);
    connect(&updater, &Updater::failed, this, &UpdateFlow::showFailure);
    connect(&updater, &Updater::downloadProgressed, this, [this](qint64 bytes) {
        if (m_progress != nullptr) {
            m_progress->setReceived(bytes);
        }
    });
    connect(&updater, &Updater::updateFound, this, [this](const AppcastItem &item, Updater::Origin origin) {
        if (origin == Updater::Origin::byHand) {
            showFound(item, origin);
        } else {
            auto *moment = new QuietMoment(m_window, m_quiet, this);
            connect(moment, &QuietMoment::came, this, [this, item, origin] { showFound(item, origin); });
        }
    });
}

void UpdateFlow::showCheck() { showProgress(new ProgressSheet(tr("Checking for Updates…"))); }

void UpdateFlow::showFound(const AppcastItem &item, Updater::Origin origin) {
    closeProgress();
    auto *sheet = new UpdateSheet(item, m_updater.currentVersion(), origin);
    connect(sheet, &UpdateSheet::installChosen, &m_updater, &Updater::install);
    connect(sheet, &UpdateSheet::laterChosen, &m_updater, &Updater::remindLater);
    connect(sheet, &UpdateSheet::skipChosen, &m_updater, &Updater::skipVersion);
    connect(sheet, &UpdateSheet::linkChosen, this, [this](const QUrl &address) { m_openLink(address); });
    SheetLayer::show(m_window, sheet);
}

void UpdateFlow::showDownload(const AppcastItem &item) {
    showProgress(new ProgressSheet(tr("Downloading Lexivore %1").arg(item.shortVersion), item.length));
}

void UpdateFlow::showNoUpdate(const UpdateChoice &choice) {
    const QString offered = choice.item.shortVersion;
    switch (choice.verdict) {
    case UpdateChoice::Verdict::downgrade:
        showMessage(tr("No Update"), tr("You have Lexivore %1. The newest version on offer is older: %2.")
                                         .arg(m_updater.currentVersion(), offered));
        return;
    case UpdateChoice::Verdict::needsSystem:
        showMessage(tr("No Update"), tr("Lexivore %1 needs a newer system: version %2 or later.")
                                         .arg(offered, choice.item.minimumSystemVersion));
        return;
    default:
        showMessage(tr("No Update"), tr("Lexivore %1 is the newest version.").arg(m_updater.currentVersion()));
    }
}

void UpdateFlow::showNoFeed() {
    showMessage(tr("No Update"), tr("Updates of Lexivore come from your system's package manager."));
}

void UpdateFlow::showHandedOver(const AppcastItem &item) {
    showMessage(tr("Update Ready"),
                tr("Lexivore %1 was verified and given to your desktop to install.").arg(item.shortVersion));
}

void UpdateFlow::showFailure(const UpdateError &error) { showMessage(tr("Update Error"), error.message()); }

void UpdateFlow::showProgress(ProgressSheet *sheet) {
    closeProgress();
    m_progress = sheet;
    connect(sheet, &ProgressSheet::cancelled, &m_updater, &Updater::cancel);
    SheetLayer::show(m_window, sheet);
}

void UpdateFlow::showMessage(const QString &title, const QString &message) {
    closeProgress();
    SheetLayer::show(m_window, new AlertSheet({.title = title, .message = message, .confirmation = tr("OK")}, {}));
}

void UpdateFlow::closeProgress() {
    if (m_progress != nullptr) {
        m_progress->dismiss();
        m_progress = nullptr;
    }
}

} // namespace lexivore
