#include "forms/folder_list.h"

#include <QComboBox>
#include <QDir>
#include <QKeyEvent>
#include <QStorageInfo>
#include <QStyle>
#include <algorithm>
#include <utility>
#include <vector>

#include "forms/qt_text.h"
#include "support/error.h"
#include "support/file_system.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr int kPathRole = Qt::UserRole;

bool IsHidden(std::string_view name) {
    return name.starts_with('.');
}

QTreeWidgetItem* MakeItem(QTreeWidgetItem* parent, const QString& name, std::string_view path,
                          const QIcon& icon) {
    auto* item = new QTreeWidgetItem(parent, {name});
    item->setIcon(0, icon);
    item->setToolTip(0, ToQt(path));
    item->setData(0, kPathRole, ToQt(path));
    return item;
}

/// File systems that hold the platform's own matters, not anybody's sources.
bool HoldsFiles(const QStorageInfo& volume) {
    const QByteArray device = volume.device();
    const bool isLocal = device.startsWith("/dev/") && !device.startsWith("/dev/loop");
    const bool isRemote = device.contains(":/") || device.startsWith("//");
    return volume.isReady() && QFileInfo(volume.rootPath()).isDir() && (isLocal || isRemote);
}

bool IsOnDrive(const QString& folder, const QString& drive) {
    return folder == drive || folder.startsWith(drive.endsWith('/') ? drive : drive + '/');
}

}  // namespace

FolderList::FolderList(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setExpandsOnDoubleClick(false);
    setIndentation(12);
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](const QTreeWidgetItem* item) {
        emit FolderChosen(FromQt(item->data(0, kPathRole).toString()));
    });
}

void FolderList::Open(std::string_view folder) {
    Open(folder, ListSubfolders(folder));
}

void FolderList::Open(std::string_view folder, std::vector<std::string> subfolders) {
    folder_ = ToPlatformPath(folder);
    clear();
    QTreeWidgetItem* const open = AddAncestors();
    if (open == nullptr) return;
    AddSubfolders(open, std::move(subfolders));
    expandAll();
    setCurrentItem(open);
    scrollToItem(open, QAbstractItemView::PositionAtTop);
}

/// The folder's own item, the last of a chain; none for an empty path.
QTreeWidgetItem* FolderList::AddAncestors() {
    std::vector<std::string> chain;
    for (std::string path = folder_; !path.empty(); path = ParentFolder(std::string(path)))
        chain.push_back(path);
    const QIcon icon = style()->standardIcon(QStyle::SP_DirOpenIcon);
    QTreeWidgetItem* item = invisibleRootItem();
    for (auto path = chain.rbegin(); path != chain.rend(); ++path) {
        const std::string_view name = FileName(*path);
        item = MakeItem(item, ToQt(name.empty() ? std::string_view(*path) : name), *path, icon);
    }
    return chain.empty() ? nullptr : item;
}

std::vector<std::string> FolderList::ListSubfolders(std::string_view folder) const {
    try {
        return files_->ListFolder(ToPlatformPath(folder)).subfolders;
    } catch (const Error&) {
        // Whoever takes a folder that cannot be read is told so there.
        return {};
    }
}

void FolderList::AddSubfolders(QTreeWidgetItem* parent, std::vector<std::string> names) {
    std::erase_if(names, IsHidden);
    std::ranges::sort(names);
    const QIcon icon = style()->standardIcon(QStyle::SP_DirClosedIcon);
    for (const std::string& name : names)
        MakeItem(parent, ToQt(name), ToPlatformPath(JoinPath(folder_, name)), icon);
}

std::string FolderList::MarkedFolder() const {
    const QTreeWidgetItem* const item = currentItem();
    return item == nullptr ? folder_ : FromQt(item->data(0, kPathRole).toString());
}

void FolderList::keyPressEvent(QKeyEvent* event) {
    // A dialog would take an Enter that is left over for a press on its default button.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit FolderChosen(MarkedFolder());
    } else if (event->key() == Qt::Key_Backspace) {
        const std::string above(ParentFolder(folder_));
        if (!above.empty()) emit FolderChosen(above);
    } else {
        QTreeWidget::keyPressEvent(event);
    }
}

void FillDriveList(QComboBox* drives) {
    drives->clear();
    drives->addItem(QDir::homePath(), QDir::homePath());
    drives->addItem(QDir::rootPath(), QDir::rootPath());
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const QString path = volume.rootPath();
        if (!HoldsFiles(volume) || drives->findData(path) >= 0) continue;
        const QString name = volume.name();
        drives->addItem(name.isEmpty() ? path : path + " (" + name + ")", path);
    }
}

void SelectDriveOf(QComboBox* drives, std::string_view folder) {
    int best = -1;
    for (int i = 0; i < drives->count(); ++i) {
        const QString drive = drives->itemData(i).toString();
        const bool isLonger = best < 0 || drive.size() > drives->itemData(best).toString().size();
        if (isLonger && IsOnDrive(ToQt(folder), drive)) best = i;
    }
    drives->setCurrentIndex(best);
}

}  // namespace snippetarium
