// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/shell/notification_center.h"

#include <algorithm>
#include <utility>

namespace lexivore {

void NotificationCenter::subscribe(const QString &name, QObject *receiver, Handler handler) {
    std::erase_if(m_subscriptions, [](const Subscription &subscription) { return subscription.receiver.isNull(); });
    m_subscriptions.push_back({name, receiver, std::move(handler)});
}

void NotificationCenter::post(const QString &name, const QVariant &object) {
    // A copy: a handler may subscribe, or delete a receiver that stands further down the list.
    const std::vector<Subscription> subscriptions = m_subscriptions;
    for (const Subscription &subscription : subscriptions) {
        if (subscription.name == name && !subscription.receiver.isNull()) {
            subscription.handler(object);
        }
    }
}

} // namespace lexivore
