// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"

#include <QMimeData>

namespace lexivore {

/// A piece of text for the clipboard, the primary selection or a drag. It shares the bytes of the text that it was cut
/// from and converts them when somebody asks, so that selecting a large text costs nothing.
class TextMimeData : public QMimeData {
    Q_OBJECT

public:
    explicit TextMimeData(Text text) : m_text(std::move(text)) {}

    [[nodiscard]] const Text &exactText() const { return m_text; }
    [[nodiscard]] QStringList formats() const override;
    [[nodiscard]] bool hasFormat(const QString &mimeType) const override;

signals:
    /// Somebody asked for the text and got nothing, because there is not enough memory to convert it. Once.
    void fellShort() const;

protected:
    [[nodiscard]] QVariant retrieveData(const QString &mimeType, QMetaType type) const override;

private:
    Text m_text;
    mutable bool m_fellShort = false;
};

/// The text of a clipboard or a drag: of our own the very bytes, shared; of another program what the toolkit reads, for
/// which broken UTF-8 is repaired.
[[nodiscard]] Text textOf(const QMimeData &mimeData);

} // namespace lexivore
