#include "base/browser_form.h"
#include "base/app_globals.h"
#include "base/messages.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStorageInfo>
#include <QTreeWidget>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPathRole = Qt::UserRole;
constexpr int kFilledRole = Qt::UserRole + 1;

bool isUnder(const QString& path, const QString& root)
{
    if (root == u"/"_s)
        return path.startsWith(u'/');
    return path == root || path.startsWith(root + u'/');
}

// The nearest folder that exists, walking up from path.
QString existingFolder(QString path)
{
    path = QDir::cleanPath(QDir(path).absolutePath());
    while (!QFileInfo(path).isDir() && path != u"/"_s)
        path = QFileInfo(path).path();
    return path;
}

bool isSystemMount(const QString& root)
{
    for (const QString& prefix : {u"/proc"_s, u"/sys"_s, u"/dev"_s, u"/run"_s, u"/snap"_s, u"/boot"_s}) {
        if (isUnder(root, prefix))
            return true;
    }
    return false;
}

} // namespace

frmBrowser::frmBrowser(int mode, QWidget* parent)
    : QDialog(parent)
    , m_mode(mode)
{
    setObjectName(u"frmBrowser"_s);
    setWindowTitle(u"Select Report Folder"_s);

    m_drives = new QComboBox(this);
    m_drives->setObjectName(u"Drives"_s);
    m_paths = new QTreeWidget(this);
    m_paths->setObjectName(u"Paths"_s);
    m_paths->setHeaderHidden(true);
    m_paths->setColumnCount(1);
    m_paths->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_pathName = new QLineEdit(this);
    m_pathName->setObjectName(u"PathName"_s);
    m_ok = new QPushButton(u"&Ok"_s, this);
    m_ok->setObjectName(u"BUT_Ok"_s);
    m_ok->setDefault(true);
    m_cancel = new QPushButton(u"&Cancel"_s, this);
    m_cancel->setObjectName(u"BUT_Cancel"_s);
    m_cancel->setAutoDefault(false);

    auto* driveLabel = new QLabel(u"&Drive:"_s, this);
    driveLabel->setBuddy(m_drives);
    auto* folderLabel = new QLabel(u"&Folder:"_s, this);
    folderLabel->setBuddy(m_pathName);

    auto* driveRow = new QHBoxLayout;
    driveRow->addWidget(driveLabel);
    driveRow->addWidget(m_drives, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_ok);
    buttons->addWidget(m_cancel);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->addLayout(driveRow);
    layout->addWidget(m_paths, 1);
    layout->addWidget(folderLabel);
    layout->addWidget(m_pathName);
    layout->addSpacing(6);
    layout->addLayout(buttons);
    resize(420, 460);

    m_pathAtLoad = pathGlobal();
    loadDrives();
    showFolder(m_pathAtLoad);
    m_pathName->setText(m_pathAtLoad);

    connect(m_drives, &QComboBox::activated, this, &frmBrowser::driveChosen);
    connect(m_paths, &QTreeWidget::itemExpanded, this, &frmBrowser::populate);
    connect(m_paths, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* item) { folderChosen(item); });
    connect(m_ok, &QPushButton::clicked, this, &frmBrowser::okClicked);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
}

QString& frmBrowser::pathGlobal()
{
    return m_mode == 1 ? gReportsPath : gBackupsPath;
}

// The roots of the machine's volumes, the home folder among them, "/" first.
void frmBrowser::loadDrives()
{
    QStringList roots{u"/"_s, QDir::homePath()};
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const QString root = volume.rootPath();
        if (volume.isValid() && volume.isReady() && QFileInfo(root).isDir() && !isSystemMount(root) &&
            !roots.contains(root))
            roots << root;
    }
    std::sort(roots.begin() + 1, roots.end());
    m_drives->clear();
    m_drives->addItems(roots);
}

QTreeWidgetItem* frmBrowser::addFolderItem(QTreeWidgetItem* parent, const QString& path, const QString& name)
{
    auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(m_paths);
    item->setText(0, name);
    item->setData(0, kPathRole, path);
    item->setData(0, kFilledRole, false);
    item->setIcon(0, style()->standardIcon(QStyle::SP_DirIcon));
    // Children are read when the item opens; until then it offers to open.
    item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    return item;
}

void frmBrowser::populate(QTreeWidgetItem* item)
{
    if (!item || item->data(0, kFilledRole).toBool())
        return;
    item->setData(0, kFilledRole, true);
    const QString path = item->data(0, kPathRole).toString();
    const QDir dir(path);
    const QStringList names = dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
    for (const QString& name : names)
        addFolderItem(item, dir.filePath(name), name);
    if (names.isEmpty())
        item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

// Shows the drive of the path and opens the tree down to the path's nearest existing folder.
void frmBrowser::showFolder(const QString& path)
{
    m_filling = true;
    const QString folder = existingFolder(path.isEmpty() ? QDir::currentPath() : path);
    int drive = 0;
    for (int i = 0; i < m_drives->count(); ++i) {
        if (isUnder(folder, m_drives->itemText(i)) &&
            m_drives->itemText(i).size() > m_drives->itemText(drive).size())
            drive = i;
    }
    m_drives->setCurrentIndex(drive);
    const QString root = m_drives->itemText(drive);

    m_paths->clear();
    QTreeWidgetItem* item = addFolderItem(nullptr, root, root);
    QString current = root;
    const QString rest = folder.mid(root == u"/"_s ? 1 : root.size() + 1);
    for (const QString& name : rest.split(u'/', Qt::SkipEmptyParts)) {
        populate(item);
        item->setExpanded(true);
        current = current == u"/"_s ? u"/"_s + name : current + u'/' + name;
        QTreeWidgetItem* next = nullptr;
        for (int i = 0; i < item->childCount() && !next; ++i) {
            if (item->child(i)->data(0, kPathRole).toString() == current)
                next = item->child(i);
        }
        // Hidden folders are not listed, but one on the way to the path still shows.
        item = next ? next : addFolderItem(item, current, name);
    }
    populate(item);
    item->setExpanded(true);
    m_paths->setCurrentItem(item);
    m_paths->scrollToItem(item);
    m_filling = false;
}

void frmBrowser::driveChosen(int index)
{
    if (index < 0)
        return;
    setMousePointer(kPointerHourglass);
    const QString root = m_drives->itemText(index);
    showFolder(root);
    m_pathName->setText(root);
    setMousePointer(kPointerDefault);
}

void frmBrowser::folderChosen(QTreeWidgetItem* item)
{
    if (m_filling || !item)
        return;
    setMousePointer(kPointerHourglass);
    m_pathName->setText(item->data(0, kPathRole).toString());
    setMousePointer(kPointerDefault);
}

void frmBrowser::okClicked()
{
    const QString path = m_pathName->text().trimmed();
    if (!QFileInfo(path).isDir() && (path.isEmpty() || !QDir().mkpath(path))) {
        messageBox(u"Path/File access error"_s, u"Lapkeeper"_s, Icon::Critical);
        m_pathName->setFocus();
        return;
    }
    pathGlobal() = path;
    accept();
}

void frmBrowser::done(int result)
{
    if (result != QDialog::Accepted)
        pathGlobal() = m_pathAtLoad;
    QString& path = pathGlobal();
    if (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    QDialog::done(result);
}
