// SPDX-License-Identifier: GPL-3.0-or-later
// A window from which files can be dragged: the paths on its command line. It says what became of
// each drag.
#include <cstdio>
#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

namespace {

class Source final : public QLabel {
public:
    explicit Source(QList<QUrl> files) : files_(std::move(files)) {
        setWindowTitle(QStringLiteral("Files to drag"));
        setFixedSize(120, 90);
        move(20, 600);
    }

protected:
    void mousePressEvent(QMouseEvent* /*event*/) override {
        auto* const dragged = new QMimeData;
        dragged->setUrls(files_);
        auto* const drag = new QDrag(this);
        drag->setMimeData(dragged);
        const Qt::DropAction action = drag->exec(Qt::CopyAction | Qt::MoveAction);
        std::printf("%s\n", action == Qt::CopyAction ? "copied" : "refused");
        std::fflush(stdout);
    }

private:
    QList<QUrl> files_;
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QList<QUrl> files;
    for (const QString& path : QCoreApplication::arguments().mid(1)) {
        files << QUrl::fromLocalFile(path);
    }
    Source source(files);
    source.show();
    return QApplication::exec();
}
