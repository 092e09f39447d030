// The batch tool's backup and restore, run as a separate process, also on a disk that fills up,
// in a folder that cannot be written and where the final rename fails.
#include "batch_process.h"
#include "support/data_files.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <linux/audit.h>
#include <linux/capability.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// Folder permissions bind the process even when it runs as root: the power to override them is
// dropped for it and for the program it starts.
void noOverride()
{
    if (::geteuid() == 0 && ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0) != 0)
        ::_exit(kSetupFailed);
}

// Every rename of the process fails with an input/output error.
void failingRename()
{
#if defined(__x86_64__)
    constexpr uint32_t arch = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
    constexpr uint32_t arch = AUDIT_ARCH_AARCH64;
#else
    constexpr uint32_t arch = 0;
    ::_exit(kSetupFailed);   // no filter written for this machine
#endif
    const auto op = [](uint16_t code, uint32_t k, uint8_t yes = 0, uint8_t no = 0) {
        return sock_filter{code, yes, no, k};
    };
    constexpr uint16_t load = BPF_LD | BPF_W | BPF_ABS;
    constexpr uint16_t equal = BPF_JMP | BPF_JEQ | BPF_K;
    constexpr uint16_t ret = BPF_RET | BPF_K;
#ifdef __NR_rename
    constexpr uint32_t plainRename = __NR_rename;
#else
    constexpr uint32_t plainRename = __NR_renameat;
#endif
    sock_filter program[] = {
        op(load, offsetof(seccomp_data, arch)),
        op(equal, arch, 1, 0),
        op(ret, SECCOMP_RET_ALLOW),
        op(load, offsetof(seccomp_data, nr)),
        op(equal, plainRename, 3, 0),
        op(equal, __NR_renameat, 2, 0),
        op(equal, __NR_renameat2, 1, 0),
        op(ret, SECCOMP_RET_ALLOW),
        op(ret, SECCOMP_RET_ERRNO | (EIO & SECCOMP_RET_DATA)),
    };
    const sock_fprog filter{static_cast<unsigned short>(std::size(program)), program};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0)
        ::_exit(kSetupFailed);
}

// An application folder with a data file holding one team and an automatic backup holding
// another (so a restore that went through would show), and a good backup to restore from.
class BatchBackup : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(batch(app(), {u"init"_s}).status, 0);
        ASSERT_EQ(sql(u"INSERT INTO teams (team_nmbr, team_name) VALUES (500, 'In the backup')"_s), 0);
        ASSERT_EQ(batch(app(), {u"backup"_s}).status, 0);
        ASSERT_EQ(batch(app(), {u"backup"_s, good()}).status, 0);
        ASSERT_EQ(sql(u"UPDATE teams SET team_name = 'Current' WHERE team_nmbr = 500"_s), 0);
        m_backups = snapshot(app(u"Backups"_s));
        m_dataFile = fileBytes(app(u"lapkeeper30.lk"_s));
        m_rows = tableRows(app(u"lapkeeper30.lk"_s));
    }
    void TearDown() override
    {
        QFile::setPermissions(app(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QFile::setPermissions(app(u"Backups"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString app(const QString& name = {}) const { return m_dir.path() + (name.isEmpty() ? QString() : u'/' + name); }
    QString good() const { return m_source.path() + u"/good.lk"_s; }
    int sql(const QString& statement) { return batch(app(), {u"sql"_s, statement}).status; }

    // Every file of a folder, hidden ones included, with its contents.
    static QList<std::pair<QString, QByteArray>> snapshot(const QString& folder)
    {
        QList<std::pair<QString, QByteArray>> files;
        for (const QString& name : folderEntries(folder))
            files.append({name, fileBytes(folder + u'/' + name)});
        return files;
    }

    // The backups are byte for byte as they were. The data file has the same rows; opening it
    // (which every command does) writes its header page anew, so its bytes are compared where
    // the command never opened it.
    void expectNothingChanged(bool dataFileOpened)
    {
        EXPECT_EQ(snapshot(app(u"Backups"_s)), m_backups);
        EXPECT_EQ(tableRows(app(u"lapkeeper30.lk"_s)), m_rows);
        if (!dataFileOpened) {
            EXPECT_EQ(fileBytes(app(u"lapkeeper30.lk"_s)), m_dataFile);
        }
        m_dataFile = fileBytes(app(u"lapkeeper30.lk"_s));
        for (const QString& name : folderEntries(app()))
            EXPECT_FALSE(name.startsWith(u'.')) << "left behind: " << qPrintable(name);
    }

    QTemporaryDir m_dir;
    QTemporaryDir m_source;
    QList<std::pair<QString, QByteArray>> m_backups;
    QByteArray m_dataFile;
    QString m_rows;
};

TEST_F(BatchBackup, backupAndRestoreRunTheMenuCommandsRulesAndExit0Or1)
{
    // The automatic backup: the newest and one dated copy per run.
    QStringList names = folderEntries(app(u"Backups"_s));
    ASSERT_EQ(names.size(), 2) << qPrintable(names.join(u' '));
    EXPECT_TRUE(names[0].startsWith(u"lapkeeper30-2"_s));
    EXPECT_EQ(names[1], u"lapkeeper30.lk"_s);
    EXPECT_EQ(fileMode(good()), 0600);

    const BatchRun restored = batch(app(), {u"restore"_s, good()});
    EXPECT_EQ(restored.status, 0) << qPrintable(restored.err);
    EXPECT_TRUE(restored.err.isEmpty()) << qPrintable(restored.err);
    EXPECT_EQ(batch(app(), {u"sql"_s, u"SELECT team_name FROM teams"_s}).out, u"team_name\nIn the backup\n"_s);
    names = folderEntries(app(u"Backups"_s));
    ASSERT_EQ(names.size(), 3);
    EXPECT_TRUE(names[0].startsWith(u"lapkeeper30-2"_s));
    EXPECT_TRUE(names[1].startsWith(u"lapkeeper30-before-restore-"_s));
    EXPECT_TRUE(tableRows(app(u"Backups/"_s) + names[1]).contains(u"500|Current"_s));

    // The data file is refused as a target and as a source; bad usage is 2.
    const BatchRun self = batch(app(), {u"backup"_s, app(u"Reports/../lapkeeper30.lk"_s)});
    EXPECT_EQ(self.status, 1);
    EXPECT_EQ(self.err, u"Lapkeeper: A backup cannot be written over the data file itself. Choose another file.\n"_s);
    EXPECT_EQ(batch(app(), {u"restore"_s, app(u"lapkeeper30.lk"_s)}).status, 1);
    EXPECT_EQ(batch(app(), {u"restore"_s}).status, 2);
    EXPECT_EQ(batch(app(), {u"backup"_s, u"a"_s, u"b"_s}).status, 2);

    // A data file that has gone: init refuses to make an empty one, restore brings it back.
    ASSERT_TRUE(QFile::remove(app(u"lapkeeper30.lk"_s)));
    const BatchRun init = batch(app(), {u"init"_s});
    EXPECT_EQ(init.status, 1);
    EXPECT_TRUE(init.err.contains(u"restore one instead"_s)) << qPrintable(init.err);
    EXPECT_FALSE(QFile::exists(app(u"lapkeeper30.lk"_s)));
    EXPECT_EQ(batch(app(), {u"backup"_s}).status, 1);
    EXPECT_EQ(batch(app(), {u"restore"_s, app(u"Backups/lapkeeper30.lk"_s)}).status, 0);
    EXPECT_EQ(batch(app(), {u"sql"_s, u"SELECT team_name FROM teams"_s}).out, u"team_name\nIn the backup\n"_s);
    EXPECT_EQ(fileMode(app(u"lapkeeper30.lk"_s)), 0600);
}

TEST_F(BatchBackup, aDiskThatFillsUpLeavesTheDataFileAndTheBackupsAsTheyWere)
{
    const BatchRun backup = batch(app(), {u"backup"_s}, diskFullBeyond(8192));
    ASSERT_NE(backup.status, kSetupFailed);
    EXPECT_EQ(backup.status, 1);
    EXPECT_TRUE(backup.err.startsWith(u"Lapkeeper: The backup to "_s + app(u"Backups/lapkeeper30.lk"_s) + u" failed: "_s))
        << qPrintable(backup.err);
    EXPECT_TRUE(backup.err.endsWith(u"Any earlier file there is unchanged.\n"_s)) << qPrintable(backup.err);
    expectNothingChanged(true);

    const BatchRun restore = batch(app(), {u"restore"_s, good()}, diskFullBeyond(8192));
    EXPECT_EQ(restore.status, 1);
    EXPECT_EQ(restore.err, u"Lapkeeper: The data file could not be restored from "_s + good() +
                               u": File too large.\nThe data file is unchanged.\n"_s);
    expectNothingChanged(false);
}

TEST_F(BatchBackup, aFolderThatCannotBeWrittenLeavesTheDataFileAndTheBackupsAsTheyWere)
{
    ASSERT_TRUE(QFile::setPermissions(app(u"Backups"_s), QFile::ReadOwner | QFile::ExeOwner));
    const BatchRun backup = batch(app(), {u"backup"_s}, noOverride);
    ASSERT_NE(backup.status, kSetupFailed);
    EXPECT_EQ(backup.status, 1);
    EXPECT_TRUE(backup.err.contains(u" failed: Permission denied."_s)) << qPrintable(backup.err);
    expectNothingChanged(true);

    // The copy of the current file cannot go to the backups folder: nothing is replaced.
    const BatchRun restore = batch(app(), {u"restore"_s, good()}, noOverride);
    EXPECT_EQ(restore.status, 1);
    EXPECT_TRUE(restore.err.contains(u": the copy of the current data file failed: Permission denied."_s))
        << qPrintable(restore.err);
    expectNothingChanged(false);

    ASSERT_TRUE(QFile::setPermissions(app(u"Backups"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    ASSERT_TRUE(QFile::setPermissions(app(), QFile::ReadOwner | QFile::ExeOwner));
    const BatchRun beside = batch(app(), {u"restore"_s, good()}, noOverride);
    EXPECT_EQ(beside.status, 1);
    EXPECT_TRUE(beside.err.endsWith(u": Permission denied.\nThe data file is unchanged.\n"_s)) << qPrintable(beside.err);
    expectNothingChanged(false);
}

TEST_F(BatchBackup, aRenameThatFailsLeavesTheDataFileAndTheBackupsAsTheyWere)
{
    const BatchRun backup = batch(app(), {u"backup"_s}, failingRename);
    ASSERT_NE(backup.status, kSetupFailed);
    EXPECT_EQ(backup.status, 1);
    EXPECT_TRUE(backup.err.contains(u" failed: Input/output error."_s)) << qPrintable(backup.err);
    expectNothingChanged(true);

    // The rename comes last: the copy of the current file is already in the backups folder.
    const BatchRun restore = batch(app(), {u"restore"_s, good()}, failingRename);
    EXPECT_EQ(restore.status, 1);
    EXPECT_TRUE(restore.err.endsWith(u": Input/output error.\nThe data file is unchanged.\n"_s)) << qPrintable(restore.err);
    EXPECT_EQ(fileBytes(app(u"lapkeeper30.lk"_s)), m_dataFile);
    EXPECT_EQ(tableRows(app(u"lapkeeper30.lk"_s)), m_rows);
    QStringList names = folderEntries(app(u"Backups"_s));
    ASSERT_EQ(names.size(), 3);
    EXPECT_EQ(fileBytes(app(u"Backups/"_s) + names[1]), m_dataFile);
    EXPECT_EQ(fileBytes(app(u"Backups/lapkeeper30.lk"_s)), m_backups.last().second);
}

} // namespace
