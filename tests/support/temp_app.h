#pragma once
#include "support/qt_printers.h"
#include "support/recording_presenter.h"

#include <QString>
#include <QTemporaryDir>
#include <memory>

// A temporary application folder with a fresh data file, opened as gConnection, and a
// recording presenter installed. Destroying it closes the connection.
class TempApp {
public:
    explicit TempApp(bool open = true);
    ~TempApp();

    QString folder() const { return m_dir.path(); }
    QString dataFile() const;
    RecordingPresenter& presenter() { return *m_presenter; }
    // Reads one value with a fresh statement (first column of the first row), as text; Null as "<null>".
    QString scalar(const QString& sql);
    int count(const QString& table, const QString& where = {});

private:
    QTemporaryDir m_dir;
    std::unique_ptr<RecordingPresenter> m_presenter;
};
