// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/secure_transfer.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

#include <utility>

namespace lexivore {

namespace {

constexpr qint64 bufferSize = 1 << 18; // bytes that may wait to be read; the server is held up after that
constexpr int longestRedirection = 5;
constexpr int successStatus = 200;

QNetworkRequest requestFor(const QUrl &address) {
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(longestRedirection);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setHeader(QNetworkRequest::UserAgentHeader, "Lexivore/" + QCoreApplication::applicationVersion());
    // What is counted, measured and verified is what is sent: nothing is unpacked on the way.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("Accept-Language", "*");
    return request;
}

} // namespace

SecureTransfer::SecureTransfer(QNetworkAccessManager &network, const QUrl &address, const Limits &limits,
                               QObject *parent)
    : QObject(parent), m_limits(limits) {
    if (!address.isValid() || address.scheme() != QLatin1String("https") || address.host().isEmpty()) {
        QTimer::singleShot(0, this, [this] { fail({UpdateError::Kind::insecureAddress, {}}); });
        return;
    }
    m_reply = network.get(requestFor(address));
    m_reply->setReadBufferSize(bufferSize);
    connectReply();
    for (QTimer *timer : {&m_silence, &m_total}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [this] { fail({UpdateError::Kind::silentServer, {}}); });
    }
    m_silence.start(limits.silence);
    if (limits.total.count() > 0) {
        m_total.start(limits.total);
    }
}

SecureTransfer::~SecureTransfer() { dropReply(); }

void SecureTransfer::connectReply() {
    connect(m_reply, &QNetworkReply::metaDataChanged, this, [this] { m_silence.start(m_limits.silence); });
    connect(m_reply, &QNetworkReply::readyRead, this, &SecureTransfer::readAvailable);
    connect(m_reply, &QNetworkReply::finished, this, &SecureTransfer::end);
}

void SecureTransfer::readAvailable() {
    m_silence.start(m_limits.silence);
    if (m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() != successStatus) {
        m_reply->readAll(); // a page about the error, which nobody reads
        return;
    }
    const QByteArray bytes = m_reply->readAll();
    m_receivedCount += bytes.size();
    if (m_receivedCount > m_limits.bytes) {
        fail({UpdateError::Kind::tooLong, {}});
        return;
    }
    if (!bytes.isEmpty()) {
        emit received(bytes);
    }
}

void SecureTransfer::end() {
    if (m_reply->error() != QNetworkReply::NoError) {
        fail(errorOfReply());
        return;
    }
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status != successStatus) {
        fail({UpdateError::Kind::serverError, QString::number(status)});
        return;
    }
    readAvailable();
    // Whoever received the bytes, or their limit, may have ended it.
    if (m_reply != nullptr) {
        dropReply();
        emit finished();
    }
}

UpdateError SecureTransfer::errorOfReply() const {
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    switch (m_reply->error()) {
    case QNetworkReply::InsecureRedirectError:
        return {UpdateError::Kind::insecureRedirect, {}};
    case QNetworkReply::SslHandshakeFailedError:
        return {UpdateError::Kind::untrustedServer, {}};
    default:
        if (status >= 400) {
            return {UpdateError::Kind::serverError, QString::number(status)};
        }
        return {UpdateError::Kind::unreachable, m_reply->errorString()};
    }
}

void SecureTransfer::fail(const UpdateError &error) {
    dropReply();
    emit failed(error);
}

void SecureTransfer::dropReply() {
    m_silence.stop();
    m_total.stop();
    if (QNetworkReply *reply = std::exchange(m_reply, nullptr)) {
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
    }
}

} // namespace lexivore
