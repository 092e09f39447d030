#pragma once
#include <QDialog>

class QTimer;

// The start-up picture: product name, version, year and the program's picture. It stands until
// its timer STart_Timer (4000 ms, started when the window shows) closes it; keys and the
// window's close button do not shorten it.
class frmSplash : public QDialog {
    Q_OBJECT
public:
    explicit frmSplash(QWidget* parent = nullptr);

    void setStartInterval(int milliseconds);

    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void timeUp();

    QTimer* m_timer = nullptr;
    bool m_timeUp = false;
};
