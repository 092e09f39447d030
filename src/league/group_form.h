#pragma once
#include <QDialog>
#include <cstdint>
#include <optional>

class cGroup;
class cDetailScreen;
class QCheckBox;
class QLineEdit;
class QPushButton;

// The screen of one group: its name and how many of its cars or drivers one team may hold
// ("No Limit" stores -1). The limit fields mark the screen changed even while it is being
// filled, so Apply is enabled from the start and Cancel always asks.
class frmGroup : public QDialog {
    Q_OBJECT
public:
    explicit frmGroup(QWidget* parent = nullptr);
    ~frmGroup() override;

    void fill(cGroup& group);
    void showWith(cGroup& group);
    bool saveGroup();

public slots:
    // Cancel, Escape and the close box: asks when something is unsaved.
    void reject() override;

private:
    void nameChanged(const QString& text);
    void noLimitClicked();
    void maxNmbrChanged(const QString& text);
    bool maxNmbrLeft();

    cGroup* m_group = nullptr;
    cDetailScreen* m_detail = nullptr;

    QLineEdit* txtName = nullptr;
    QLineEdit* txtMaxNmbr = nullptr;
    QCheckBox* chkNoLimit = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
};
