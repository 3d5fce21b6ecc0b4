#include "platform/settings/SettingsRegistry.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QStandardPaths>
#include <QString>

namespace paperkite {

namespace {

QString FromText(const std::string& text) {
    return QString::fromStdString(text);
}

// "/" and "\" cut keys in the store itself, and an empty step would vanish; "%" alone cannot come
// from any name.
QString Step(const QString& name) {
    if (name.isEmpty()) return QStringLiteral("%");
    QString step = name;
    step.replace(QLatin1Char('%'), QLatin1String("%25"));
    step.replace(QLatin1Char('/'), QLatin1String("%2F"));
    step.replace(QLatin1Char('\\'), QLatin1String("%5C"));
    return step;
}

QString KeyOf(const std::string& keyPath, const std::string& name) {
    QString key;
    const QStringList steps = FromText(keyPath).split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    for (const QString& step : steps)
        key += Step(step) + QLatin1Char('/');
    return key + Step(FromText(name));
}

// A program that was killed while it wrote may leave a lock that does not say whose it is; the
// store itself would wait for half a minute until it takes such a lock for abandoned. The system
// still guards a lock that a living program holds.
void RemoveAbandonedLock(const QSettings& store) {
    const QString path = store.fileName() + QLatin1String(".lock");
    if (store.format() != QSettings::IniFormat || !QFileInfo::exists(path)) return;
    constexpr int kAbandonedAfter = 1000;
    QLockFile lock(path);
    lock.setStaleLockTime(kAbandonedAfter);
    lock.tryLock(4 * kAbandonedAfter);
}

#ifdef Q_OS_WIN
std::unique_ptr<QSettings> StandardStore(RegistryHive root) {
    const bool isUser = root == RegistryHive::CurrentUser;
    return std::make_unique<QSettings>(isUser ? QStringLiteral("HKEY_CURRENT_USER")
                                              : QStringLiteral("HKEY_LOCAL_MACHINE"),
                                       QSettings::NativeFormat);
}
#else
QString StandardFile(RegistryHive root) {
    if (root == RegistryHive::LocalMachine)
        return QStringLiteral("/etc/xdg/paperkite/registry.ini");
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return folder + QStringLiteral("/paperkite/registry.ini");
}

std::unique_ptr<QSettings> StandardStore(RegistryHive root) {
    return std::make_unique<QSettings>(StandardFile(root), QSettings::IniFormat);
}
#endif

} // namespace

struct SettingsRegistry::Stores {
    std::unique_ptr<QSettings> User;
    std::unique_ptr<QSettings> Machine;

    /// With what other processes have written until now.
    QSettings& Fresh(RegistryHive root) {
        if (root != RegistryHive::CurrentUser && root != RegistryHive::LocalMachine)
            RaiseError(ErrorNumber::InvalidCall, "There is no such hive of settings");
        QSettings& store = root == RegistryHive::CurrentUser ? *User : *Machine;
        store.sync();
        return store;
    }
};

SettingsRegistry::SettingsRegistry() : mStores(std::make_unique<Stores>()) {
    mStores->User = StandardStore(RegistryHive::CurrentUser);
    mStores->Machine = StandardStore(RegistryHive::LocalMachine);
}

SettingsRegistry::SettingsRegistry(const std::string& userFile, const std::string& machineFile)
    : mStores(std::make_unique<Stores>()) {
    mStores->User = std::make_unique<QSettings>(FromText(userFile), QSettings::IniFormat);
    mStores->Machine = std::make_unique<QSettings>(FromText(machineFile), QSettings::IniFormat);
}

SettingsRegistry::~SettingsRegistry() = default;

void SettingsRegistry::CreateKey(RegistryHive root, const std::string& keyPath) {
    if (!mStores->Fresh(root).isWritable())
        RaiseError(ErrorNumber::PermissionDenied,
                   "The settings \"" + keyPath + "\" cannot be written");
}

void SettingsRegistry::WriteValue(RegistryHive root, const std::string& keyPath,
                                  const std::string& name, int, const std::string& value) {
    QSettings& store = mStores->Fresh(root);
    store.setValue(KeyOf(keyPath, name), FromText(value));
    RemoveAbandonedLock(store);
    store.sync();
    // A file that was damaged when it was read stays called so, and is whole by now.
    if (store.status() == QSettings::AccessError || !store.isWritable())
        RaiseError(ErrorNumber::PermissionDenied, "The setting \"" + name +
                                                      "\" cannot be written to " +
                                                      store.fileName().toStdString());
}

Value SettingsRegistry::ReadValue(RegistryHive root, const std::string& keyPath,
                                  const std::string& name) {
    const QVariant value = mStores->Fresh(root).value(KeyOf(keyPath, name));
    if (!value.isValid()) return {};
    // An INI file that was edited by hand may hold a bare comma, which reads as a list.
    if (value.typeId() == QMetaType::QStringList)
        return Value(value.toStringList().join(QStringLiteral(", ")).toStdString());
    return Value(value.toString().toStdString());
}

} // namespace paperkite
