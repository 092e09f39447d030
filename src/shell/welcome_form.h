#pragma once
#include <QDialog>

class QPushButton;
class QTimer;

// The first-run greeting. Shortly after it shows it plays the sound "TADA"; however it is
// closed, it leaves the hourglass for the rest of the start-up.
class frmWelcome : public QDialog {
    Q_OBJECT
public:
    explicit frmWelcome(QWidget* parent = nullptr);

    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void playGreeting();

    QTimer* m_tada = nullptr;
    bool m_greeted = false;
};
