// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace lexivore {

/// The style of a user who wants nothing to move.
class StillStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returned) const override {
        return hint == SH_Widget_Animation_Duration ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

} // namespace lexivore
