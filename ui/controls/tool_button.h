// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>

namespace lexivore {

/// A button that is a symbol alone. Its help is its tooltip and its accessible name.
class ToolButton : public QToolButton {
    Q_OBJECT

public:
    /// Sizes in device-independent pixels.
    struct Size {
        int button;
        int symbol;
    };
    static constexpr Size toolBar{32, 20};
    static constexpr Size row{28, 16};
    static constexpr Size small{20, 14};

    ToolButton(const QString &symbol, const QString &help, Size size = toolBar, QWidget *parent = nullptr);

    void setSymbol(const QString &name);
    void setHelp(const QString &help);
    /// How solid it is drawn, from 0 to 1: 1 at first.
    void setOpacity(double opacity);

    /// Wider by a small chevron when it has a menu.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbol;
    Size m_size;
    double m_opacity = 1;
};

} // namespace lexivore
