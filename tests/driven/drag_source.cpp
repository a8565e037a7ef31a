// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
// A small window of another program, from which a file or a text can be dragged: drag_source file://... or drag_source
// TEXT
#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

namespace {

class Source : public QLabel {
public:
    explicit Source(const QStringList &dragged) : QLabel("drag me"), m_dragged(dragged) {
        setWindowTitle("Drag source");
        setAlignment(Qt::AlignCenter);
    }

protected:
    void mousePressEvent(QMouseEvent *) override {}

    void mouseMoveEvent(QMouseEvent *event) override {
        if ((event->buttons() & Qt::LeftButton) == 0) {
            return;
        }
        auto *carried = new QMimeData;
        if (m_dragged.front().startsWith("file:")) {
            QList<QUrl> urls;
            for (const QString &url : m_dragged) {
                urls << QUrl(url);
            }
            carried->setUrls(urls);
        } else {
            carried->setText(m_dragged.front());
        }
        auto *drag = new QDrag(this);
        drag->setMimeData(carried);
        drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
    }

private:
    QStringList m_dragged;
};

} // namespace

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    Source source(QApplication::arguments().mid(1));
    source.setGeometry(1450, 300, 160, 80);
    source.show();
    return QApplication::exec();
}
