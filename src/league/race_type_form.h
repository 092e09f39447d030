#pragma once
#include <QDialog>

class cRaceType;
class cDetailScreen;
class QLineEdit;
class QPushButton;

// The screen of one race type: its name.
class frmRaceType : public QDialog {
    Q_OBJECT
public:
    explicit frmRaceType(QWidget* parent = nullptr);
    ~frmRaceType() override;

    void fill(cRaceType& raceType);
    void showWith(cRaceType& raceType);
    bool saveRaceType();

public slots:
    // Cancel, Escape and the close box: asks when something is unsaved.
    void reject() override;

private:
    void nameChanged(const QString& text);

    cRaceType* m_raceType = nullptr;
    cDetailScreen* m_detail = nullptr;

    QLineEdit* txtName = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdApply = nullptr;
};
