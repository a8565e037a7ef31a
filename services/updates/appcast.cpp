// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/appcast.h"

#include <QCoreApplication>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include <utility>

namespace lexivore {

namespace {

struct Words {
    Q_DECLARE_TR_FUNCTIONS(Appcast)
};

constexpr int deepestElement = 32;
constexpr qsizetype longestVersion = 100; // UTF-16 units; comparing many long ones could take minutes
constexpr auto formatNamespace = QLatin1String("http://www.andymatuschak.org/xml-namespaces/sparkle");

/// Whether a document type stands before the root element, where alone it may stand.
bool hasDocumentType(QStringView xml) {
    while (true) {
        xml = xml.trimmed();
        const bool isComment = xml.startsWith(QLatin1String("<!--"));
        if (!isComment && !xml.startsWith(QLatin1String("<?"))) {
            return xml.startsWith(QLatin1String("<!"));
        }
        const auto end = isComment ? QLatin1String("-->") : QLatin1String("?>");
        const qsizetype length = xml.indexOf(end);
        if (length < 0) {
            return false;
        }
        xml = xml.sliced(length + end.size());
    }
}

/// Reads the one feed that it is made for.
class Reader {
public:
    explicit Reader(const QString &xml) : m_xml(xml) {}

    AppcastResult read() {
        while (!m_xml.atEnd()) {
            readNext();
        }
        if (m_xml.hasError()) {
            return {{}, Words::tr("line %1: %2").arg(m_xml.lineNumber()).arg(m_xml.errorString())};
        }
        return {std::move(m_appcast), {}};
    }

private:
    void readNext() {
        const QXmlStreamReader::TokenType token = m_xml.readNext();
        if (token == QXmlStreamReader::StartElement) {
            startElement();
        } else if (token == QXmlStreamReader::EndElement) {
            endElement();
        } else if (token == QXmlStreamReader::Characters) {
            m_text += m_xml.text();
        }
    }

    void startElement() {
        m_path << m_xml.name().toString();
        if (m_path.size() > deepestElement) {
            m_xml.raiseError(Words::tr("the elements are nested too deeply"));
        } else if (m_path.front() != QLatin1String("rss")) {
            m_xml.raiseError(Words::tr("this is no RSS"));
        } else if (isItem()) {
            m_item = {};
            m_hasForeignFile = false;
        } else if (isInItem()) {
            m_text.clear();
            m_format = m_xml.attributes().value(formatNamespace, "format").toString();
            if (isPlain("enclosure")) {
                readEnclosure();
            }
        }
    }

    void endElement() {
        if (isItem()) {
            endItem();
        } else if (isInItem()) {
            readValue();
        }
        m_path.removeLast();
    }

    [[nodiscard]] bool isItem() const {
        return m_path.size() == 3 && m_path[1] == QLatin1String("channel") && m_path[2] == QLatin1String("item");
    }
    /// Directly: what stands deeper belongs to elements that we do not know.
    [[nodiscard]] bool isInItem() const {
        return m_path.size() == 4 && m_path[1] == QLatin1String("channel") && m_path[2] == QLatin1String("item");
    }
    [[nodiscard]] bool isPlain(const char *name) const {
        return m_xml.namespaceUri().isEmpty() && m_xml.name() == QLatin1String(name);
    }
    [[nodiscard]] bool isOfFormat(const char *name) const {
        return m_xml.namespaceUri() == formatNamespace && m_xml.name() == QLatin1String(name);
    }

    /// Older feeds have the versions here instead of in elements of their own, which win.
    void readEnclosure() {
        const QXmlStreamAttributes attributes = m_xml.attributes();
        const auto ofFormat = [&](const char *name) {
            return attributes.value(formatNamespace, QLatin1String(name)).toString().trimmed();
        };
        const QString system = ofFormat("os");
        if (!system.isEmpty() && !system.startsWith(QLatin1String("linux"), Qt::CaseInsensitive)) {
            m_hasForeignFile = true;
            return;
        }
        m_item.file = QUrl(attributes.value(QLatin1String("url")).trimmed().toString(), QUrl::StrictMode);
        bool isNumber = false;
        const qint64 length = attributes.value(QLatin1String("length")).trimmed().toLongLong(&isNumber);
        m_item.length = isNumber && length > 0 ? length : 0;
        m_item.signature = decoded(ofFormat("edSignature"));
        if (m_item.version.isEmpty()) {
            m_item.version = ofFormat("version");
        }
        if (m_item.shortVersion.isEmpty()) {
            m_item.shortVersion = ofFormat("shortVersionString");
        }
    }

    void readValue() {
        const QString value = m_text.trimmed();
        if (isOfFormat("version")) {
            m_item.version = value;
        } else if (isOfFormat("shortVersionString")) {
            m_item.shortVersion = value;
        } else if (isOfFormat("minimumSystemVersion")) {
            m_item.minimumSystemVersion = value;
        } else if (isOfFormat("channel")) {
            m_item.channel = value;
        } else if (isOfFormat("releaseNotesLink")) {
            m_item.releaseNotesLink = QUrl(value, QUrl::StrictMode);
        } else if (isPlain("description")) {
            m_item.releaseNotes = value;
            const bool isPlainText = m_format == QLatin1String("plain-text");
            m_item.notesFormat = isPlainText ? AppcastItem::NotesFormat::plainText : AppcastItem::NotesFormat::html;
        }
    }

    void endItem() {
        if (m_item.version.isEmpty() || m_item.version.size() > longestVersion ||
            (m_hasForeignFile && m_item.file.isEmpty())) {
            return;
        }
        if (m_item.shortVersion.isEmpty()) {
            m_item.shortVersion = m_item.version;
        }
        m_item.shortVersion.truncate(longestVersion);
        m_appcast.items.push_back(std::move(m_item));
    }

    static QByteArray decoded(const QString &base64) {
        const auto result = QByteArray::fromBase64Encoding(base64.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
        return result ? *result : QByteArray();
    }

    QXmlStreamReader m_xml;
    QStringList m_path; ///< Names of the open elements, the root first.
    QString m_text;     ///< Of the value that is being read, with that of its children.
    QString m_format;   ///< Of the value that is being read.
    AppcastItem m_item;
    bool m_hasForeignFile = false; ///< The item has a file for another system.
    Appcast m_appcast;
};

} // namespace

AppcastResult parseAppcast(const QByteArray &feed) {
    if (feed.size() > longestAppcast) {
        return {{}, Words::tr("longer than %1 bytes").arg(longestAppcast)};
    }
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString xml = decoder(feed);
    if (decoder.hasError()) {
        return {{}, Words::tr("this is no UTF-8")};
    }
    if (hasDocumentType(xml)) {
        return {{}, Words::tr("a document type is not allowed")};
    }
    return Reader(xml).read();
}

} // namespace lexivore
