#pragma once
// Runs the batch tool as a separate process, optionally under a limit set up in the child first.
#include <QProcess>
#include <QTemporaryDir>
#include <functional>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

// Exit status of a child whose limits could not be set up.
inline constexpr int kSetupFailed = 125;

struct BatchRun {
    int status = -1;
    QString out;
    QString err;
};

// Runs the batch tool on the application folder dir; limit runs in the child before the tool starts.
inline BatchRun batch(const QString& dir, const QStringList& args, const std::function<void()>& limit = {})
{
    QProcess process;
    if (limit)
        process.setChildProcessModifier(limit);
    process.start(QString::fromUtf8(LK_BATCH_PATH), QStringList{QStringLiteral("--app-dir"), dir} + args);
    process.waitForFinished(30000);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

inline BatchRun batch(const QTemporaryDir& dir, const QStringList& args, const std::function<void()>& limit = {})
{
    return batch(dir.path(), args, limit);
}

// A disk that is full beyond the given size: a longer write fails with "File too large" instead
// of ending the process.
inline std::function<void()> diskFullBeyond(rlim_t bytes)
{
    return [bytes] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, bytes};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
            ::_exit(kSetupFailed);
    };
}
