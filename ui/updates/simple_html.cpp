// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/updates/simple_html.h"

#include <QRegularExpression>
#include <QSet>

namespace lexivore {

namespace {

constexpr int mostTags = 1000;

/// Whatever begins with "<", to where it ends or else to the end of the text: so nothing is looked at twice.
const QRegularExpression &markup() {
    static const QRegularExpression expression(
        R"(<!--.*?(?:-->|\z))"
        R"(|<(?<hidden>script|style|title)\b.*?(?:</\k<hidden>\s*>|\z))"
        R"(|<(?<end>/?)(?<name>[a-z][a-z0-9]*)(?<attributes>(?:"[^"]*+(?:"|\z)|'[^']*+(?:'|\z)|[^'">])*+)(?:>|\z))"
        R"(|<[!?/][^>]*+(?:>|\z))"
        R"(|<)",
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    return expression;
}

/// The value of the attribute `href`, as it is written there; null when there is none.
QString addressIn(const QString &attributes) {
    static const QRegularExpression expression(R"-((?:^|\s)href\s*+=\s*+(?:"([^"]*+)"|'([^']*+)'|([^\s"']++)))-",
                                               QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = expression.match(attributes);
    return match.hasMatch() ? match.captured(match.lastCapturedIndex()) : QString();
}

QString simpleTag(const QString &end, const QString &name, const QString &attributes) {
    static const QSet<QString> kept{"h1", "h2", "h3", "h4", "h5",     "h6", "p",  "br",   "div", "blockquote",
                                    "ul", "ol", "li", "b",  "strong", "i",  "em", "code", "tt",  "pre"};
    static const QSet<QString> paragraphs{"table", "thead", "tbody",   "tfoot",   "caption", "tr",
                                          "td",    "th",    "section", "article", "header",  "footer",
                                          "main",  "dl",    "dt",      "dd",      "hr"};
    if (name == "a" && end.isEmpty()) {
        const QString address = addressIn(attributes);
        return address.isNull() ? QString() : "<a href=\"" + QString(address).replace('"', "&quot;") + "\">";
    }
    if (kept.contains(name) || name == "a") {
        return '<' + end + name + '>';
    }
    return paragraphs.contains(name) ? '<' + end + "div>" : QString();
}

} // namespace

QString simpleHtml(const QString &html) {
    QString result;
    qsizetype behindLast = 0;
    int tags = 0;
    for (auto matches = markup().globalMatch(html); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += QStringView(html).mid(behindLast, match.capturedStart() - behindLast);
        behindLast = match.capturedEnd();
        if (const QString name = match.captured("name").toLower(); !name.isEmpty()) {
            if (++tags > mostTags) {
                return result;
            }
            result += simpleTag(match.captured("end"), name, match.captured("attributes"));
        } else if (match.capturedLength() == 1) {
            result += "&lt;";
        }
    }
    return result += QStringView(html).mid(behindLast);
}

} // namespace lexivore
