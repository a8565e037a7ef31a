// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "manager/recipe_json.h"

#include "manager/json_text.h"
#include "manager/text_conversion.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>
#include <QRegularExpression>

#include <cmath>
#include <utility>

namespace lexivore {

namespace {

/// What was wrong with the JSON, as a sentence for the user.
struct Refusal {
    QString reason;
};

QJsonValue encodedUuid(const QUuid &uuid) { return uuid.toString(QUuid::WithoutBraces).toUpper(); }

QJsonObject encoded(const AppliedOperation &operation) {
    QJsonObject parameters;
    for (const auto &[key, value] : operation.parameters) {
        parameters.insert(toQString(key), toQString(value));
    }
    return {
        {QStringLiteral("id"), encodedUuid(operation.id)},
        {QStringLiteral("transformation"), toQString(operation.transformation)},
        {QStringLiteral("transformationName"), toQString(operation.transformationName)},
        {QStringLiteral("parameters"), parameters},
        {QStringLiteral("timestamp"), operation.timestamp.secondsSinceReferenceDate},
        {QStringLiteral("isEnabled"), operation.isEnabled},
    };
}

QJsonObject encoded(const Recipe &recipe) {
    QJsonArray operations;
    for (const AppliedOperation &operation : recipe.operations) {
        operations.append(encoded(operation));
    }
    return {
        {QStringLiteral("id"), encodedUuid(recipe.id)},
        {QStringLiteral("name"), toQString(recipe.name)},
        {QStringLiteral("operations"), operations},
        {QStringLiteral("createdAt"), recipe.createdAt.secondsSinceReferenceDate},
        {QStringLiteral("category"), toQString(rawValue(recipe.category))},
    };
}

bool hasFiniteTimes(const Recipe &recipe) {
    for (const AppliedOperation &operation : recipe.operations) {
        if (!std::isfinite(operation.timestamp.secondsSinceReferenceDate)) {
            return false;
        }
    }
    return std::isfinite(recipe.createdAt.secondsSinceReferenceDate);
}

/// Reads the fields of one object; a missing key or a wrong type is thrown as a Refusal that names the place.
class ObjectReader {
public:
    ObjectReader(const QJsonValue &value, QString place) : m_place(std::move(place)) {
        if (!value.isObject()) {
            throw Refusal{RecipeJson::tr("%1 is not an object.").arg(m_place)};
        }
        m_object = value.toObject();
    }

    [[nodiscard]] QString text(const QString &key) const {
        return required(key, QJsonValue::String, RecipeJson::tr("a text")).toString();
    }
    [[nodiscard]] Timestamp time(const QString &key) const {
        return {required(key, QJsonValue::Double, RecipeJson::tr("a number of seconds")).toDouble()};
    }
    [[nodiscard]] bool boolean(const QString &key) const {
        return required(key, QJsonValue::Bool, RecipeJson::tr("true or false")).toBool();
    }
    [[nodiscard]] QJsonArray array(const QString &key) const {
        return required(key, QJsonValue::Array, RecipeJson::tr("a list")).toArray();
    }
    [[nodiscard]] QUuid uuid(const QString &key) const {
        // QUuid itself also takes braces and other forms, and does not tell a mistake from the null UUID.
        static const QRegularExpression form(
            QStringLiteral("\\A[0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}\\z"));
        const QString written = text(key);
        if (!form.match(written).hasMatch()) {
            throw Refusal{RecipeJson::tr("\"%1\" of %2 is not a UUID.").arg(key, m_place)};
        }
        return QUuid::fromString(written);
    }
    [[nodiscard]] RecipeCategory category(const QString &key) const {
        const std::optional<RecipeCategory> found = recipeCategory(text(key).toStdString());
        if (!found) {
            throw Refusal{RecipeJson::tr("\"%1\" of %2 is not a recipe category.").arg(key, m_place)};
        }
        return *found;
    }
    [[nodiscard]] ParameterMap parameters(const QString &key) const {
        const QJsonObject object = required(key, QJsonValue::Object, RecipeJson::tr("an object of texts")).toObject();
        ParameterMap read;
        for (auto entry = object.begin(); entry != object.end(); ++entry) {
            if (!entry.value().isString()) {
                throw Refusal{RecipeJson::tr("Parameter \"%1\" of %2 is not a text.").arg(entry.key(), m_place)};
            }
            read.emplace(entry.key().toStdString(), entry.value().toString().toStdString());
        }
        return read;
    }

private:
    [[nodiscard]] QJsonValue required(const QString &key, QJsonValue::Type type, const QString &expected) const {
        QJsonValue value = m_object.value(key);
        if (value.isUndefined()) {
            throw Refusal{RecipeJson::tr("%1 has no \"%2\".").arg(m_place, key)};
        }
        if (value.type() != type) {
            throw Refusal{RecipeJson::tr("\"%1\" of %2 is not %3.").arg(key, m_place, expected)};
        }
        return value;
    }

    QJsonObject m_object;
    QString m_place;
};

AppliedOperation decodedOperation(const QJsonValue &value, const QString &place) {
    const ObjectReader reader(value, place);
    AppliedOperation operation;
    operation.id = reader.uuid(QStringLiteral("id"));
    operation.transformation = reader.text(QStringLiteral("transformation")).toStdString();
    operation.transformationName = reader.text(QStringLiteral("transformationName")).toStdString();
    operation.parameters = reader.parameters(QStringLiteral("parameters"));
    operation.timestamp = reader.time(QStringLiteral("timestamp"));
    operation.isEnabled = reader.boolean(QStringLiteral("isEnabled"));
    return operation;
}

Recipe decodedRecipe(const QJsonValue &value, qsizetype number) {
    const ObjectReader reader(value, RecipeJson::tr("Recipe %1").arg(number));
    Recipe recipe;
    recipe.id = reader.uuid(QStringLiteral("id"));
    recipe.name = reader.text(QStringLiteral("name")).toStdString();
    const QJsonArray operations = reader.array(QStringLiteral("operations"));
    for (qsizetype i = 0; i < operations.size(); ++i) {
        recipe.operations.push_back(
            decodedOperation(operations[i], RecipeJson::tr("operation %1 of recipe %2").arg(i + 1).arg(number)));
    }
    recipe.createdAt = reader.time(QStringLiteral("createdAt"));
    recipe.category = reader.category(QStringLiteral("category"));
    return recipe;
}

std::vector<Recipe> decodedRecipes(const QByteArray &json) {
    QJsonParseError error;
    const QJsonDocument document = readJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        throw Refusal{
            RecipeJson::tr("It is not valid JSON: %1 at byte %2.").arg(error.errorString()).arg(error.offset)};
    }
    if (!document.isArray()) {
        throw Refusal{RecipeJson::tr("It is not a list of recipes.")};
    }
    const QJsonArray list = document.array();
    std::vector<Recipe> recipes;
    for (qsizetype i = 0; i < list.size(); ++i) {
        recipes.push_back(decodedRecipe(list[i], i + 1));
    }
    return recipes;
}

} // namespace

std::optional<QByteArray> RecipeJson::encode(const std::vector<Recipe> &recipes, QJsonDocument::JsonFormat format) {
    QJsonArray list;
    for (const Recipe &recipe : recipes) {
        if (!hasFiniteTimes(recipe)) {
            return std::nullopt;
        }
        list.append(encoded(recipe));
    }
    return writtenJson(QJsonDocument(list), format);
}

std::optional<std::vector<Recipe>> RecipeJson::decode(const QByteArray &json, QString *problem) {
    try {
        return decodedRecipes(json);
    } catch (const Refusal &refusal) {
        if (problem != nullptr) {
            *problem = refusal.reason;
        }
        return std::nullopt;
    }
}

} // namespace lexivore
