#include "support/recording_presenter.h"

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// Every test binary runs with a QApplication (offscreen) and with the per-user folders moved
// into a temporary home, so no test touches the operator's settings or data.
int main(int argc, char** argv)
{
    QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", (home.path() + QStringLiteral("/config")).toUtf8());
    qputenv("XDG_DATA_HOME", (home.path() + QStringLiteral("/share")).toUtf8());
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lapkeeper"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
