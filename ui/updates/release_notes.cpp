// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/updates/release_notes.h"

#include "ui/theme/theme.h"
#include "ui/theme/typography.h"
#include "ui/updates/simple_html.h"

#include <QCoreApplication>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

namespace lexivore {

namespace {

constexpr qsizetype longestNotes = 1 << 16; // UTF-16 units
constexpr int deepestList = 4;
constexpr int paragraphDistance = 6;
constexpr QChar imagePlace = QChar::ObjectReplacementCharacter;

/// Looks nowhere for what a text refers to.
class SealedDocument : public QTextDocument {
protected:
    QVariant loadResource(int, const QUrl &) override { return {}; }
};

bool isSecureLink(const QUrl &address) {
    return address.scheme() == QLatin1String("https") && !address.host().isEmpty();
}

QTextCharFormat linkTo(const QUrl &address) {
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(address.toString(QUrl::FullyEncoded));
    format.setForeground(theme().accentText);
    format.setFontUnderline(true);
    return format;
}

/// What may come through of how a stretch of text looks.
QTextCharFormat harmless(const QTextCharFormat &given, bool isHeading) {
    const QUrl address(given.anchorHref(), QUrl::StrictMode);
    QTextCharFormat format = given.isAnchor() && isSecureLink(address) ? linkTo(address) : QTextCharFormat();
    if (isHeading) {
        format.setFontWeight(QFont::DemiBold);
    } else if (given.fontWeight() > QFont::Medium) {
        format.setFontWeight(QFont::Bold);
    }
    if (given.fontItalic()) {
        format.setFontItalic(true);
    }
    if (given.fontFixedPitch() || given.fontFamilies().toStringList().contains("monospace")) {
        format.setFontFamilies(monospacedFont(systemPoints()).families());
    }
    return format;
}

/// Writes one block after another.
class Writer {
public:
    explicit Writer(QTextDocument &document) : m_cursor(&document), m_isFirst(true) {}

    void write(const QTextBlock &block) {
        if (block.text().remove(imagePlace).trimmed().isEmpty()) {
            return;
        }
        startBlock(block.textList());
        const bool isHeading = block.blockFormat().headingLevel() > 0;
        for (auto place = block.begin(); !place.atEnd(); ++place) {
            const QTextFragment fragment = place.fragment();
            m_cursor.insertText(fragment.text().remove(imagePlace), harmless(fragment.charFormat(), isHeading));
        }
    }

    void writeLink(const QString &text, const QUrl &address) {
        startBlock(nullptr);
        m_cursor.insertText(text, linkTo(address));
    }

private:
    void startBlock(const QTextList *list) {
        QTextBlockFormat format;
        format.setBottomMargin(paragraphDistance);
        if (m_isFirst) {
            m_cursor.setBlockFormat(format);
        } else {
            m_cursor.insertBlock(format, QTextCharFormat());
        }
        m_isFirst = false;
        if (list == nullptr) {
            m_list = nullptr;
        } else if (list == m_source && m_list != nullptr) {
            m_list->add(m_cursor.block());
        } else {
            QTextListFormat listFormat;
            listFormat.setStyle(list->format().style());
            listFormat.setIndent(qBound(1, list->format().indent(), deepestList));
            m_list = m_cursor.createList(listFormat);
        }
        m_source = list;
    }

    QTextCursor m_cursor;
    bool m_isFirst;
    const QTextList *m_source = nullptr; ///< That the last block came from.
    QTextList *m_list = nullptr;         ///< That it was written to.
};

} // namespace

void writeReleaseNotes(QTextDocument &document, const AppcastItem &item) {
    SealedDocument source;
    const QString notes = item.releaseNotes.left(longestNotes);
    if (item.notesFormat == AppcastItem::NotesFormat::html) {
        source.setHtml(simpleHtml(notes));
    } else {
        source.setPlainText(notes);
    }
    Writer writer(document);
    for (QTextBlock block = source.begin(); block.isValid(); block = block.next()) {
        writer.write(block);
    }
    if (isSecureLink(item.releaseNotesLink)) {
        writer.writeLink(QCoreApplication::translate("UpdateSheet", "Read the release notes on the web"),
                         item.releaseNotesLink);
    }
}

} // namespace lexivore
