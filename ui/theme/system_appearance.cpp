// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/theme/system_appearance.h"

#include "ui/theme/theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace lexivore {

namespace {

constexpr QLatin1String service("org.freedesktop.portal.Desktop");
constexpr QLatin1String path("/org/freedesktop/portal/desktop");
constexpr QLatin1String interface("org.freedesktop.portal.Settings");
constexpr QLatin1String appearance("org.freedesktop.appearance");
constexpr QLatin1String colourScheme("color-scheme");

QPalette paletteFor(ColourScheme scheme) {
    switch (scheme) {
    case ColourScheme::dark:
        return paletteOf(darkTheme());
    case ColourScheme::light:
        return paletteOf(lightTheme());
    case ColourScheme::noPreference:
        break;
    }
    return {}; // the platform's
}

class Appearance : public QObject {
    Q_OBJECT

public:
    explicit Appearance(QObject *parent);

private slots:
    void changeSetting(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void ask();
    void follow(ColourScheme scheme);

    ColourScheme m_scheme = ColourScheme::noPreference;
};

Appearance::Appearance(QObject *parent) : QObject(parent) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) {
        // Connecting fails while QtDBus has met no variant yet.
        qDBusRegisterMetaType<QDBusVariant>();
        bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                    SLOT(changeSetting(QString, QString, QDBusVariant)));
        ask();
    }
}

void Appearance::ask() {
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    question << appearance << colourScheme;
    auto *waiting = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(waiting, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *answered) {
        const QDBusPendingReply<QDBusVariant> reply = *answered;
        if (reply.isValid()) {
            follow(colourSchemeOf(QVariant::fromValue(reply.value())));
        }
        answered->deleteLater();
    });
}

void Appearance::changeSetting(const QString &group, const QString &key, const QDBusVariant &value) {
    if (group == appearance && key == colourScheme) {
        follow(colourSchemeOf(QVariant::fromValue(value)));
    }
}

void Appearance::follow(ColourScheme scheme) {
    if (scheme != m_scheme) {
        m_scheme = scheme;
        QApplication::setPalette(paletteFor(scheme));
    }
}

} // namespace

ColourScheme colourSchemeOf(const QVariant &value) {
    QVariant inner = value;
    while (inner.metaType() == QMetaType::fromType<QDBusVariant>()) {
        inner = inner.value<QDBusVariant>().variant();
    }
    if (inner.typeId() != QMetaType::UInt) {
        return ColourScheme::noPreference;
    }
    switch (inner.toUInt()) {
    case 1:
        return ColourScheme::dark;
    case 2:
        return ColourScheme::light;
    default:
        return ColourScheme::noPreference;
    }
}

void followSystemAppearance(QApplication &application) { new Appearance(&application); }

} // namespace lexivore

#include "system_appearance.moc"
