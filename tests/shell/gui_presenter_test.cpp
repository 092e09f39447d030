#include "shell/gui_presenter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QProgressBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>
#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Acts on the next modal window from inside the event loop that shows it.
void whenModalShown(std::function<void(QWidget*)> act, int tries = 200)
{
    QTimer::singleShot(10, [act, tries] {
        if (QWidget* modal = QApplication::activeModalWidget())
            act(modal);
        else if (tries > 0)
            whenModalShown(act, tries - 1);
    });
}

class UrlCatcher : public QObject {
    Q_OBJECT
public:
    QList<QUrl> urls;
public slots:
    void open(const QUrl& url) { urls << url; }
};

} // namespace

TEST(QtFileFilter, TurnsDescriptionPatternPairsIntoDialogFilters)
{
    EXPECT_EQ(qtFileFilter(u"Lapkeeper Data File (*.lk)|*.lk|"_s), u"Lapkeeper Data File (*.lk)"_s);
    EXPECT_EQ(qtFileFilter(u"Import Files|*.lki|All Files|*.*"_s), u"Import Files (*.lki);;All Files (*.*)"_s);
    EXPECT_EQ(qtFileFilter(u"Pages|*.htm;*.html|"_s), u"Pages (*.htm *.html)"_s);
    EXPECT_EQ(qtFileFilter({}), QString());
}

TEST(GuiPresenter, StepsTheProgressBarAndWritesOneStatusPanel)
{
    GuiPresenter gui;
    gui.advanceProgress();   // nothing registered: nothing happens

    QProgressBar bar;
    bar.setRange(0, 3);
    bar.setValue(2);
    gui.setProgressBar(&bar);
    QList<int> seen;
    for (int i = 0; i < 4; ++i) {
        gui.advanceProgress();
        seen << bar.value();
    }
    EXPECT_EQ(seen, (QList<int>{3, 1, 2, 3}));

    // Status texts go into one panel of the registered bar.
    gui.setStatusText(u"before any bar"_s);
    QStatusBar status;
    gui.setStatusBar(&status);
    gui.setStatusBar(&status);
    gui.setStatusText(u"Loading"_s);
    const QList<QLabel*> panels = status.findChildren<QLabel*>(u"StatusPanel1"_s);
    ASSERT_EQ(panels.size(), 1);
    EXPECT_EQ(panels[0]->text(), u"Loading"_s);
}

TEST(GuiPresenter, HourglassIsOneOverrideThatTheDefaultRemoves)
{
    GuiPresenter gui;
    gui.setMousePointer(11);
    gui.setMousePointer(11);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    EXPECT_EQ(gui.mousePointer(), 11);
    gui.setMousePointer(0);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(gui.mousePointer(), 0);
}

TEST(GuiPresenter, LaunchRunAndPlayFailForMissingFilesAndOpenExistingOnes)
{
    GuiPresenter gui;
    QTemporaryDir dir;
    EXPECT_EQ(gui.launch(dir.filePath(u"missing.html"_s)), 2);
    EXPECT_EQ(gui.launch(QUrl::fromLocalFile(dir.filePath(u"missing.html"_s)).toString()), 2);

    QFile page(dir.filePath(u"index.html"_s));
    ASSERT_TRUE(page.open(QIODevice::WriteOnly));
    page.close();
    UrlCatcher catcher;
    QDesktopServices::setUrlHandler(u"file"_s, &catcher, "open");
    const int plain = gui.launch(u"  "_s + page.fileName() + u" "_s);
    const int anchored = gui.launch(QUrl::fromLocalFile(page.fileName()).toString() + u"#context-500"_s);
    QDesktopServices::unsetUrlHandler(u"file"_s);

    EXPECT_GE(plain, 33);
    EXPECT_GE(anchored, 33);
    ASSERT_EQ(catcher.urls.size(), 2);
    EXPECT_EQ(catcher.urls[0].toLocalFile(), page.fileName());
    EXPECT_EQ(catcher.urls[1].fragment(), u"context-500"_s);
    EXPECT_EQ(gui.runProgram(u"no-such-program-lapkeeper"_s, {}), 2);
    EXPECT_EQ(gui.runProgram(u"/nonexistent/tool"_s, {}), 2);
    EXPECT_GE(gui.runProgram(u"true"_s, {}), 33);
    EXPECT_FALSE(gui.playWave(u"/nonexistent/TADA.wav"_s));
}

TEST(GuiPresenter, MessageBoxShowsTitleTextIconAndDefaultsToTheFirstButton)
{
    GuiPresenter gui;
    QString title, text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    bool firstIsDefault = false;
    whenModalShown([&](QWidget* modal) {
        auto* box = qobject_cast<QMessageBox*>(modal);
        if (!box) {
            modal->close();
            return;
        }
        title = box->windowTitle();
        text = box->text();
        icon = box->icon();
        firstIsDefault = static_cast<QAbstractButton*>(box->defaultButton()) == box->button(QMessageBox::Yes);
        box->button(QMessageBox::No)->click();
    });
    const Answer answer = gui.messageBox(u"Do you want to save changes"_s, u"League One"_s, Icon::Exclamation,
                                         Buttons::YesNoCancel);
    EXPECT_EQ(answer, Answer::No);
    EXPECT_EQ(title, u"League One"_s);
    EXPECT_EQ(text, u"Do you want to save changes"_s);
    EXPECT_EQ(icon, QMessageBox::Warning);
    EXPECT_TRUE(firstIsDefault);
}

#include "gui_presenter_test.moc"
