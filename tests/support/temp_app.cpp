#include "support/temp_app.h"
#include "base/app_globals.h"
#include "store/connection.h"
#include "store/schema.h"

#include <gtest/gtest.h>

TempApp::TempApp(bool open) : m_presenter(std::make_unique<RecordingPresenter>())
{
    setApplicationFolder(m_dir.path());
    makeApplicationFolders();
    QString error;
    if (!createDataFile(dataFile(), error))
        ADD_FAILURE() << "data file not created: " << qPrintable(error);
    if (open && !openDatabase())
        ADD_FAILURE() << "data file not opened: " << qPrintable(m_presenter->boxTexts().join(u'\n'));
}

TempApp::~TempApp()
{
    if (gConnection)
        gConnection->CloseConnection();
    gConnection.reset();
}

QString TempApp::dataFile() const
{
    return m_dir.path() + u'/' + kDataFileName;
}

QString TempApp::scalar(const QString& sql)
{
    IDatabase db;
    if (!db.OpenResultSet(sql) || db.eof())
        return QStringLiteral("<none>");
    const cVariant& v = db.value(0);
    return v.isNull() ? QStringLiteral("<null>") : v.toTextOrEmpty();
}

int TempApp::count(const QString& table, const QString& where)
{
    return scalar(QStringLiteral("SELECT count(*) FROM ") + table + (where.isEmpty() ? QString() : u' ' + where)).toInt();
}
