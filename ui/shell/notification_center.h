// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

#include <functional>
#include <vector>

namespace lexivore {

/// Every name that is posted, with the kind of object that it carries.
namespace notification {
inline constexpr char undoTransformation[] = "UndoTransformation";
inline constexpr char redoTransformation[] = "RedoTransformation";
inline constexpr char applyTransformation[] = "ApplyTransformation"; ///< QString: the transformation's id
inline constexpr char toggleStackOperationMode[] = "ToggleStackOperationMode";
inline constexpr char toggleOperations[] = "ToggleOperations";
inline constexpr char toggleSidebar[] = "ToggleSidebar";
inline constexpr char applyRecipe[] = "ApplyRecipe"; ///< QString: the recipe's id, a UUID
inline constexpr char showRecipeSheet[] = "ShowRecipeSheet";
inline constexpr char showManageRecipes[] = "ShowManageRecipes";
inline constexpr char runTool[] = "RunTool"; ///< QString: the tool's id
inline constexpr char openFile[] = "OpenFile";
inline constexpr char saveFile[] = "SaveFile";
inline constexpr char refreshOperations[] = "RefreshOperations";
inline constexpr char textChanged[] = "TextChanged"; ///< bool: there is text now
inline constexpr char zoomIn[] = "ZoomIn";
inline constexpr char zoomOut[] = "ZoomOut";
inline constexpr char resetZoom[] = "ResetZoom";
inline constexpr char find[] = "Find";
inline constexpr char findNext[] = "FindNext";
inline constexpr char findPrevious[] = "FindPrevious";
inline constexpr char searchTransformations[] = "SearchTransformations";
inline constexpr char importRecipes[] = "ImportRecipes";
inline constexpr char exportRecipes[] = "ExportRecipes";
} // namespace notification

/// How commands reach whoever carries them out: posted by name, delivered at once to every subscriber of the name in
/// the order of subscription. Sender and receiver know only the name.
class NotificationCenter {
public:
    using Handler = std::function<void(const QVariant &object)>;

    NotificationCenter() = default;
    NotificationCenter(const NotificationCenter &) = delete;
    NotificationCenter &operator=(const NotificationCenter &) = delete;

    /// `handler` is called for every later post of `name` as long as `receiver` lives.
    void subscribe(const QString &name, QObject *receiver, Handler handler);
    /// An invalid `object` means that there is none. Handlers may post and subscribe themselves; a subscription made
    /// meanwhile does not see this post.
    void post(const QString &name, const QVariant &object = {});

private:
    struct Subscription {
        QString name;
        QPointer<QObject> receiver;
        Handler handler;
    };
    std::vector<Subscription> m_subscriptions;
};

} // namespace lexivore
