#include "league/reference_list_form.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int kIndexRole = Qt::UserRole;   // position of the row's record in the list, from 1

QPushButton* makeButton(QWidget* parent, const QString& caption, const QString& name)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}
} // namespace

frmReferenceList::frmReferenceList(QWidget* parent, const QString& formName, const QString& caption,
                                   const QString& listName, const QStringList& headers)
    : QDialog(parent)
{
    setObjectName(formName);
    setWindowTitle(caption);

    auto* tabs = new QTabWidget(this);
    tabs->setObjectName(u"SSTab1"_s);
    auto* page = new QWidget(tabs);
    tabs->addTab(page, caption);

    m_list = new QTreeWidget(page);
    m_list->setObjectName(listName);
    m_list->setHeaderLabels(headers);
    m_list->setRootIsDecorated(false);
    m_list->setAllColumnsShowFocus(true);
    m_list->header()->setSectionsClickable(true);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_list->installEventFilter(this);

    cmdAdd = makeButton(page, u"&Add"_s, u"cmdAdd"_s);
    cmdUpdate = makeButton(page, u"&Update"_s, u"cmdUpdate"_s);
    cmdDelete = makeButton(page, u"&Delete"_s, u"cmdDelete"_s);
    auto* side = new QVBoxLayout;
    side->addWidget(cmdAdd);
    side->addWidget(cmdUpdate);
    side->addWidget(cmdDelete);
    side->addStretch();
    auto* pageLayout = new QHBoxLayout(page);
    pageLayout->addWidget(m_list, 1);
    pageLayout->addLayout(side);

    cmdOK = makeButton(this, u"&OK"_s, u"cmdOK"_s);
    cmdOK->setDefault(true);
    cmdCancel = makeButton(this, u"&Cancel"_s, u"cmdCancel"_s);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs, 1);
    layout->addLayout(buttons);
    resize(headers.size() > 1 ? 460 : 400, 320);

    connect(cmdAdd, &QPushButton::clicked, this, [this] { addRecord(); });
    connect(cmdUpdate, &QPushButton::clicked, this, [this] { updateRecord(); });
    connect(cmdDelete, &QPushButton::clicked, this, [this] { deleteRecord(); });
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, [this] { updateRecord(); });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_list->header(), &QHeaderView::sectionClicked, this, [this](int column) {
        m_list->header()->setSortIndicatorShown(true);
        m_list->sortItems(column, Qt::AscendingOrder);
    });
}

frmReferenceList::~frmReferenceList() = default;

QTreeWidgetItem* frmReferenceList::addRow(const QStringList& texts, int index)
{
    auto* row = new QTreeWidgetItem(m_list, texts);
    row->setData(0, kIndexRole, index);
    return row;
}

int frmReferenceList::selectedIndex() const
{
    const QTreeWidgetItem* row = m_list->currentItem();
    return row ? row->data(0, kIndexRole).toInt() : 0;
}

bool frmReferenceList::event(QEvent* event)
{
    if (event->type() == QEvent::Show)
        refreshRows({});
    return QDialog::event(event);
}

bool frmReferenceList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_list && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        deleteRecord();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}
