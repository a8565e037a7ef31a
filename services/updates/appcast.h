// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <vector>

namespace lexivore {

/// One update as the feed announces it. Nothing of it is to be trusted but what the signature covers: the file.
struct AppcastItem {
    enum class NotesFormat { html, plainText };

    QString version;              ///< What is compared; never empty.
    QString shortVersion;         ///< What is shown; the version where the feed has no other.
    QString minimumSystemVersion; ///< Empty when any system will do.
    QString channel;              ///< Empty for the one that everybody is on.
    QString releaseNotes;
    NotesFormat notesFormat = NotesFormat::html;
    QUrl releaseNotesLink;
    QUrl file;
    qint64 length = 0;    ///< Of the file in bytes; 0 when the feed does not say.
    QByteArray signature; ///< Ed25519 (RFC 8032) of the file's bytes, decoded; empty when there is none.
};

/// A feed of updates: RSS 2.0 with the elements of Sparkle's appcast format.
struct Appcast {
    /// In the order of the feed. Those for other systems, without a version, or with an absurdly long one are left out.
    std::vector<AppcastItem> items;
};

/// What came of reading a feed.
struct AppcastResult {
    Appcast appcast;
    QString error; ///< What is wrong with the feed: a detail of a message to the user. Empty when nothing is.

    [[nodiscard]] bool isValid() const { return error.isEmpty(); }
};

inline constexpr qsizetype longestAppcast = 1 << 20; ///< Bytes; a longer feed is refused.

/// Reads a feed in UTF-8. Refuses what is too long, too deep, no well-formed XML, no RSS, or has a document type, with
/// which it could define entities. Linear in the size of the feed.
[[nodiscard]] AppcastResult parseAppcast(const QByteArray &feed);

} // namespace lexivore
