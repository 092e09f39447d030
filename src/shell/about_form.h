#pragma once
#include <QDialog>
#include <QPixmap>

class QLabel;
class QPushButton;
class QToolButton;

// The program's picture at the given size, or a null pixmap when it cannot be drawn.
QPixmap programPixmap(int size);

// The About box: program name, version, the picture (a link to the web site) and the system
// information tool.
class frmAbout : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* parent = nullptr);

    // The first system information tool found on PATH, or an empty text.
    static QString systemInfoProgram();

private:
    void runSystemInfo();

    QLabel* m_title = nullptr;
    QLabel* m_version = nullptr;
    QToolButton* m_image = nullptr;
    QPushButton* m_ok = nullptr;
    QPushButton* m_sysInfo = nullptr;
};
