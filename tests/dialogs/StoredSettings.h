#ifndef TORNIK_TESTS_DIALOGS_STOREDSETTINGS_H
#define TORNIK_TESTS_DIALOGS_STOREDSETTINGS_H

#include "shell/CSettings.h"

#include <QDataStream>

#include <functional>

/** The settings in the store, and changes of them. */
namespace StoredSettings {

using Change = std::function<void(CSettings&)>;

inline QString notNull(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

/** Every value of the settings, in bytes, so that two records can be compared. */
inline QByteArray bytesOf(CSettings settings)
{
    // An empty text may be a null text, too.
    settings.setStorageDefaultPath(notNull(settings.storageDefaultPath()));
    settings.setQrCodeHandlingCamera(notNull(settings.qrCodeHandlingCamera()));
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_5);
    stream << settings;
    return bytes;
}

inline CSettings storedSettings()
{
    CSettings settings;
    settings.read();
    return settings;
}

inline void store(const Change& change)
{
    CSettings settings = storedSettings();
    change(settings);
    settings.write();
}

/** A change of one value. */
template <typename Value>
Change to(void (CSettings::*set)(Value), const std::decay_t<Value>& value)
{
    return [set, value](CSettings& settings) { (settings.*set)(value); };
}

} // namespace StoredSettings

#endif
