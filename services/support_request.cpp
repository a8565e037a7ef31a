// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/support_request.h"

#include "engine/primitives/codecs.h"
#include "services/bundle_information.h"

#include <QStringEncoder>

namespace lexivore {

namespace {

QString applicationName(const QVariantMap &information) {
    const QVariant name = information.value(bundle_key::name);
    return name.typeId() == QMetaType::QString ? name.toString() : QString("App");
}

/// Percent-encoded for the query of a URL; empty when the text is no valid UTF-16.
QString encodedForQuery(const QString &text) {
    // Stateless: otherwise it waits for the other half of a pair that the text ends within, and sees no mistake.
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    const QByteArray utf8 = encoder(text);
    if (encoder.hasError()) {
        return {};
    }
    TextBuffer encoded;
    appendPercent(encoded, {utf8.constData(), static_cast<std::size_t>(utf8.size())});
    return QString::fromLatin1(encoded.data(), static_cast<qsizetype>(encoded.size()));
}

} // namespace

QString supportRequestAddress(const QVariantMap &information, const std::optional<QString> &subject) {
    const QString name = applicationName(information);
    const QString usedSubject = subject.value_or(name + " Support Request");
    const QString body = "Hello " + name + " Team,\n\nI need assistance with the following:\n\n";
    return "mailto:" + information.value(bundle_key::supportAddress).toString() +
           "?subject=" + encodedForQuery(usedSubject) + "&body=" + encodedForQuery(body);
}

void contactSupport(const QVariantMap &information, const std::function<void(const QUrl &)> &open,
                    const std::optional<QString> &subject) {
    const QUrl address(supportRequestAddress(information, subject), QUrl::StrictMode);
    if (address.isValid()) {
        open(address);
    }
}

} // namespace lexivore
