// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/preferences.h"
#include "manager/preferences_json.h"

#include <QVariantMap>

namespace lexivore::test {

/// Preferences that live as long as the test, with the types that the file would give back.
class MemoryPreferences : public Preferences {
public:
    [[nodiscard]] QVariant value(const QString &key) const override { return m_values.value(key); }
    void setValue(const QString &key, const QVariant &value) override {
        m_values.insert(key, decodePreference(encodePreference(value)));
        ++m_writeCount;
    }
    [[nodiscard]] bool isStored() const override { return m_isStored; }
    /// As when the disk is full; everything else stays as it is.
    void setStored(bool isStored) { m_isStored = isStored; }

    [[nodiscard]] bool contains(const QString &key) const { return m_values.contains(key); }
    /// How often something was set.
    [[nodiscard]] int writeCount() const { return m_writeCount; }
    /// As if it had never been set.
    void remove(const QString &key) { m_values.remove(key); }
    void clear() { m_values.clear(); }

private:
    QVariantMap m_values;
    int m_writeCount = 0;
    bool m_isStored = true;
};

} // namespace lexivore::test
