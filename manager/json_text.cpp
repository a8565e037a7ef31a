// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/json_text.h"

#include <QByteArrayView>
#include <QJsonArray>

namespace lexivore {

namespace {

const QByteArray byteOrderMark("\xEF\xBB\xBF");

QByteArray withMarksEscaped(QByteArray json) { return json.replace(byteOrderMark, "\\ufeff"); }

bool isSpace(char byte) { return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t'; }

/// Goes over JSON from its beginning to its end, and never beyond, whatever the bytes are.
class JsonWalk {
public:
    explicit JsonWalk(QByteArrayView json) : m_json(json) {
        if (m_json.startsWith(byteOrderMark)) {
            m_place = byteOrderMark.size();
        }
    }

    [[nodiscard]] bool isAtEnd() {
        passSpace();
        return m_place >= m_json.size();
    }
    /// Whether the byte stands next, which is then passed.
    [[nodiscard]] bool pass(char byte) {
        const bool isNext = !isAtEnd() && m_json[m_place] == byte;
        m_place += isNext ? 1 : 0;
        return isNext;
    }
    /// The value that stands next, to the comma or the bracket behind it. Empty when there is none.
    [[nodiscard]] QByteArrayView value() { return passed(",]}"); }
    /// The name that stands next, to the colon behind it. Empty when there is none.
    [[nodiscard]] QByteArrayView name() { return passed(":"); }

private:
    void passSpace() {
        while (m_place < m_json.size() && isSpace(m_json[m_place])) {
            ++m_place;
        }
    }
    /// To the next quote that ends a text.
    void passText() {
        for (++m_place; m_place < m_json.size() && m_json[m_place] != '"'; ++m_place) {
            m_place += m_json[m_place] == '\\' ? 1 : 0;
        }
    }
    /// What stands before the first of the bytes that is in no text and no brackets.
    [[nodiscard]] QByteArrayView passed(QByteArrayView ends) {
        passSpace();
        const qsizetype begin = m_place;
        for (qsizetype depth = 0; m_place < m_json.size(); ++m_place) {
            const char byte = m_json[m_place];
            if (depth == 0 && ends.contains(byte)) {
                return m_json.sliced(begin, m_place - begin).trimmed();
            }
            if (byte == '"') {
                passText();
            } else if (byte == '[' || byte == '{') {
                ++depth;
            } else if (byte == ']' || byte == '}') {
                --depth;
            }
        }
        return {};
    }

    QByteArrayView m_json;
    qsizetype m_place = 0;
};

} // namespace

QJsonDocument readJson(const QByteArray &json, QJsonParseError *error) {
    // The mark before everything else is no part of a text.
    const QByteArray front = json.startsWith(byteOrderMark) ? byteOrderMark : QByteArray();
    if (json.indexOf(byteOrderMark, front.size()) >= 0) {
        QJsonDocument document = QJsonDocument::fromJson(withMarksEscaped(json.mid(front.size())));
        if (!document.isNull()) {
            if (error != nullptr) {
                *error = QJsonParseError();
            }
            return document;
        }
    }
    return QJsonDocument::fromJson(json, error); // as it stands, so that an error has its own place
}

QByteArray writtenJson(const QJsonDocument &document, QJsonDocument::JsonFormat format) {
    return withMarksEscaped(document.toJson(format));
}

std::optional<QMap<QString, QByteArray>> memberTexts(const QByteArray &object) {
    QMap<QString, QByteArray> members;
    JsonWalk walk(object);
    if (!walk.pass('{')) {
        return std::nullopt;
    }
    if (!walk.pass('}')) {
        do {
            const QJsonValue name = readJson('[' + walk.name().toByteArray() + ']').array().first();
            const QByteArrayView value = walk.pass(':') ? walk.value() : QByteArrayView();
            if (!name.isString() || value.isEmpty()) {
                return std::nullopt;
            }
            members.insert(name.toString(), value.toByteArray());
        } while (walk.pass(','));
        if (!walk.pass('}')) {
            return std::nullopt;
        }
    }
    return walk.isAtEnd() ? std::optional(std::move(members)) : std::nullopt;
}

QByteArray withoutSpace(const QByteArray &json) {
    QByteArray parts;
    parts.reserve(json.size());
    bool isInText = false;
    bool isEscaped = false;
    for (const char byte : json) {
        if (isInText || !isSpace(byte)) {
            parts += byte;
        }
        isInText = isInText != (byte == '"' && !isEscaped);
        isEscaped = isInText && byte == '\\' && !isEscaped;
    }
    return parts;
}

} // namespace lexivore
