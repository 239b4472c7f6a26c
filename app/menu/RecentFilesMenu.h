// app/menu/RecentFilesMenu.h: the sub-menu of the recent files. Its items are made when it opens.
#pragma once

#include <QMenu>

namespace tarvik {

class RecentFilesMenu final : public QMenu {
    Q_OBJECT
public:
    explicit RecentFilesMenu(QWidget* parent);

private:
    void Fill();
    void AddFile(int number, const QString& path);
};

} // namespace tarvik
