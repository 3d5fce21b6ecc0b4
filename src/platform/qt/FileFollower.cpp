#include "platform/qt/FileFollower.h"

#include "platform/qt/Conversions.h"

#include <QDateTime>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QTimer>

namespace paperkite {

namespace {

/// Programs write a file in several steps, or replace it.
constexpr int kSettlingMilliseconds = 150;

class FileFollower : public QObject {
public:
    FileFollower(const QString& path, std::function<void()> changed)
        : mPath(path), mChanged(std::move(changed)) {
        mSettling.setSingleShot(true);
        mSettling.setInterval(kSettlingMilliseconds);
        connect(&mSettling, &QTimer::timeout, this, [this] { Settled(); });
        const auto soon = [this] { mSettling.start(); };
        connect(&mWatcher, &QFileSystemWatcher::fileChanged, this, soon);
        connect(&mWatcher, &QFileSystemWatcher::directoryChanged, this, soon);
        // The folder tells of a file that comes, or takes the place of the old one.
        mWatcher.addPath(QFileInfo(path).absolutePath());
        WatchFile();
    }

    /// It may be let go by what it calls, so that it ends later.
    void End() {
        mEnded = true;
        deleteLater();
    }

private:
    using Stamp = std::pair<qint64, QDateTime>;

    void WatchFile() {
        const QFileInfo file(mPath);
        if (file.exists() && !mWatcher.files().contains(mPath)) mWatcher.addPath(mPath);
        mSeen = {file.exists() ? file.size() : -1, file.lastModified()};
    }

    // Most of what happens in the folder is about other files.
    void Settled() {
        const Stamp before = mSeen;
        WatchFile();
        if (mSeen != before && !mEnded) mChanged();
    }

    QString mPath;
    std::function<void()> mChanged;
    QFileSystemWatcher mWatcher;
    QTimer mSettling;
    Stamp mSeen;
    bool mEnded = false;
};

} // namespace

std::shared_ptr<void> FollowFile(const std::string& path, std::function<void()> changed) {
    return {new FileFollower(ToQString(path), std::move(changed)),
            [](FileFollower* follower) { follower->End(); }};
}

} // namespace paperkite
