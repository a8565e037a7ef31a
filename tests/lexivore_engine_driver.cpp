// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
// The engine as a filter, so that scripts in any language can be compared with it.
//
// Reads one JSON object a line:   {"id": "...", "text": "...", "parameters": {"key": "value"}}
// Writes one for each, in order:  {"result": "..."} or {"error": "..."}
//
// "id" is a transformation's; or "stack", with "operations" as a list of {"transformation", "parameters", "isEnabled"}
// that are applied in turn, disabled, unknown and failing ones skipped; or "tool:" and a tool's, which gives its
// report. A lone surrogate in an escape is kept as the three bytes that UTF-8 would have for it: that is how a text
// comes in that is not valid. On the way out bytes that are no UTF-8 are escapes again if they are a surrogate, else
// U+FFFD.
#include "engine/catalog.h"
#include "tools/character_frequency_tool.h"
#include "tools/readability_tool.h"
#include "tools/reading_time_tool.h"
#include "tools/statistics_tool.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringDecoder>

#include <functional>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>

namespace lexivore {

namespace {

/// What is wrong with a request, in words.
struct RequestError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string bytesOf(const QString &string) {
    std::string bytes;
    QString wellFormed;
    const auto flush = [&] {
        bytes += wellFormed.toStdString();
        wellFormed.clear();
    };
    for (qsizetype index = 0; index < string.size(); ++index) {
        const QChar unit = string[index];
        const bool isPair = unit.isHighSurrogate() && index + 1 < string.size() && string[index + 1].isLowSurrogate();
        if (isPair) {
            wellFormed += unit;
            wellFormed += string[++index];
        } else if (unit.isSurrogate()) {
            flush();
            const unsigned value = unit.unicode();
            for (const unsigned byte : {0xE0U | value >> 12, 0x80U | (value >> 6 & 0x3FU), 0x80U | (value & 0x3FU)}) {
                bytes += static_cast<char>(static_cast<unsigned char>(byte));
            }
        } else {
            wellFormed += unit;
        }
    }
    flush();
    return bytes;
}

/// The surrogate that begins at `position`, or 0.
char16_t surrogateAt(std::string_view bytes, std::size_t position) {
    const auto byte = [&](std::size_t offset) {
        return position + offset < bytes.size() ? static_cast<unsigned char>(bytes[position + offset]) : 0U;
    };
    const bool isSurrogate =
        byte(0) == 0xED && byte(1) >= 0xA0 && byte(1) <= 0xBF && byte(2) >= 0x80 && byte(2) <= 0xBF;
    return isSurrogate ? static_cast<char16_t>(0xD000U | (byte(1) & 0x3FU) << 6 | (byte(2) & 0x3FU)) : char16_t{0};
}

/// Decodes UTF-8 and keeps a byte-order mark at the beginning, which QString::fromUtf8 would drop.
QString decoded(std::string_view bytes, bool *hasError = nullptr) {
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString string = decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    if (hasError != nullptr) {
        *hasError = decoder.hasError();
    }
    return string;
}

QString stringOf(std::string_view bytes) {
    QString string;
    std::size_t begin = 0;
    for (std::size_t position = bytes.find('\xED'); position != std::string_view::npos;
         position = bytes.find('\xED', position + 1)) {
        if (const char16_t surrogate = surrogateAt(bytes, position); surrogate != 0) {
            string += decoded(bytes.substr(begin, position - begin)) + QChar(surrogate);
            begin = position + 3;
        }
    }
    return string + decoded(bytes.substr(begin));
}

std::string stringField(const QJsonObject &object, const QString &name) {
    if (!object.value(name).isString()) {
        throw RequestError("\"" + name.toStdString() + "\" is not a string");
    }
    return bytesOf(object.value(name).toString());
}

ParameterMap parametersOf(const QJsonObject &object) {
    const QJsonValue field = object.value("parameters");
    if (!field.isUndefined() && !field.isObject()) {
        throw RequestError("\"parameters\" is not an object");
    }
    const QJsonObject given = field.toObject();
    ParameterMap parameters;
    for (auto entry = given.begin(); entry != given.end(); ++entry) {
        if (!entry.value().isString()) {
            throw RequestError("The parameter \"" + bytesOf(entry.key()) + "\" is not a string");
        }
        parameters[bytesOf(entry.key())] = bytesOf(entry.value().toString());
    }
    return parameters;
}

const Catalog &catalog() {
    static const Catalog transformations = makeCatalog();
    return transformations;
}

struct Operation {
    std::string transformation;
    ParameterMap parameters;
    bool isEnabled = true;
};

/// All operations, so that a malformed one is an error even where it would not be reached.
std::vector<Operation> operationsOf(const QJsonObject &request) {
    if (!request.value("operations").isArray()) {
        throw RequestError("\"operations\" is not an array");
    }
    std::vector<Operation> operations;
    for (const auto &entry : request.value("operations").toArray()) {
        const QJsonObject operation = entry.toObject();
        const QJsonValue isEnabled = operation.value("isEnabled");
        if (!isEnabled.isUndefined() && !isEnabled.isBool()) {
            throw RequestError("\"isEnabled\" is not true or false");
        }
        operations.push_back(
            {stringField(operation, "transformation"), parametersOf(operation), isEnabled.toBool(true)});
    }
    return operations;
}

std::string stackResult(const QJsonObject &request) {
    std::string text = stringField(request, "text");
    for (const Operation &operation : operationsOf(request)) {
        const TransformationPointer transformation = findTransformation(catalog(), operation.transformation);
        if (!operation.isEnabled || !transformation) {
            continue;
        }
        try {
            text = std::string(transformation->apply(text, operation.parameters).view());
        } catch (const TransformationError &) {
            // The text stays as it was before this operation.
        }
    }
    return text;
}

using Handler = std::function<std::string(const QJsonObject &request)>;

/// The ids that are not a transformation's.
const std::map<std::string, Handler> &handlers() {
    static const std::map<std::string, Handler> all = {
        {"stack", stackResult},
        {"tool:statistics",
         [](const QJsonObject &request) { return statisticsReport(textStatistics(stringField(request, "text"))); }},
        {"tool:character-frequency",
         [](const QJsonObject &request) {
             return characterFrequencyReport(characterFrequencies(stringField(request, "text")));
         }},
        {"tool:reading-time",
         [](const QJsonObject &request) { return readingTimeReport(readingTime(stringField(request, "text"))); }},
        {"tool:readability",
         [](const QJsonObject &request) { return readabilityReport(readability(stringField(request, "text"))); }},
    };
    return all;
}

std::string resultOf(const QJsonObject &request) {
    const std::string id = stringField(request, "id");
    if (const auto handler = handlers().find(id); handler != handlers().end()) {
        return handler->second(request);
    }
    if (const TransformationPointer transformation = findTransformation(catalog(), id)) {
        return std::string(transformation->apply(stringField(request, "text"), parametersOf(request)).view());
    }
    throw RequestError("No transformation or tool has the id \"" + id + "\"");
}

/// The line with an escape for every character that is not ASCII. Only strings can hold any, and Qt's parser would drop
/// a byte-order mark at the beginning of one.
QByteArray inAscii(const std::string &line) {
    bool hasError = false;
    const QString text = decoded(line, &hasError);
    if (hasError) {
        throw RequestError("The line is not UTF-8");
    }
    QByteArray result;
    bool isEscaped = false;
    for (const QChar unit : text) {
        if (isEscaped && !QStringView(u"\"\\/bfnrtu").contains(unit)) { // Qt's parser would let it pass
            throw RequestError("The line is not JSON: invalid escape sequence");
        }
        if (unit.unicode() < 0x80) {
            result += unit.toLatin1();
        } else {
            result += "\\u" + QByteArray::number(unit.unicode(), 16).rightJustified(4, '0');
        }
        isEscaped = unit == u'\\' && !isEscaped;
    }
    return result;
}

QJsonObject parsed(const std::string &line) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(inAscii(line), &error);
    if (error.error != QJsonParseError::NoError) {
        throw RequestError("The line is not JSON: " + error.errorString().toStdString());
    }
    if (!document.isObject()) {
        throw RequestError("The line is not a JSON object");
    }
    return document.object();
}

QJsonObject answerTo(const std::string &line) {
    try {
        return {{"result", stringOf(resultOf(parsed(line)))}};
    } catch (const TransformationError &error) {
        return {{"error", stringOf(error.description())}};
    } catch (const std::exception &error) {
        return {{"error", stringOf(error.what())}};
    }
}

} // namespace

} // namespace lexivore

int main() {
    std::ios::sync_with_stdio(false);
    for (std::string line; std::getline(std::cin, line);) {
        const QByteArray answer = QJsonDocument(lexivore::answerTo(line)).toJson(QJsonDocument::Compact);
        std::cout << answer.toStdString() << std::endl; // flushed: whoever asked waits for it
    }
    return 0;
}
