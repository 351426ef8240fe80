#include "dialogs/CCarEditorConfig.h"

#include "data/StreamValue.h"

#include <QSettings>

namespace {

bool isField(int index)
{
    return index >= 0 && index < CCarEditorConfig::NumberOfFields;
}

/** The store of the application, in the group of the car editor. */
class Store : public QSettings
{
public:
    Store()
        : QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Tornik"),
                    QStringLiteral("Tornik"))
    {
        beginGroup(QStringLiteral("uiConfig"));
        beginGroup(QStringLiteral("uiCarEditorDialog"));
    }
};

QString showKey(int index)
{
    return QStringLiteral("ShowFreeField%1").arg(index);
}

QString titleKey(int index)
{
    return QStringLiteral("TitleFreeField%1").arg(index);
}

} // namespace

bool CCarEditorConfig::showFreeField(int index) const
{
    return isField(index) && m_fields[std::size_t(index)].show;
}

void CCarEditorConfig::setShowFreeField(int index, bool show)
{
    if (isField(index))
        m_fields[std::size_t(index)].show = show;
}

QString CCarEditorConfig::titleFreeField(int index) const
{
    return isField(index) ? m_fields[std::size_t(index)].title : QString();
}

void CCarEditorConfig::setTitleFreeField(int index, const QString& title)
{
    if (isField(index))
        m_fields[std::size_t(index)].title = title;
}

CCarEditorConfig::FreeField CCarEditorConfig::defaultOf(int index)
{
    switch (index) {
    case 0:
        return {true, tr("Farbe")};
    case 1:
        return {true, tr("Reifen")};
    case 2:
        return {true, tr("Modifikationen")};
    default:
        return {};
    }
}

void CCarEditorConfig::read()
{
    const Store store;
    for (int index = 0; index < NumberOfFields; ++index) {
        const FreeField missing = defaultOf(index);
        setShowFreeField(index, store.value(showKey(index), missing.show).toBool());
        setTitleFreeField(index, store.value(titleKey(index), missing.title).toString());
    }
}

void CCarEditorConfig::write() const
{
    Store store;
    for (int index = 0; index < NumberOfFields; ++index) {
        store.setValue(showKey(index), showFreeField(index));
        store.setValue(titleKey(index), titleFreeField(index));
    }
}

QDataStream& operator<<(QDataStream& stream, const CCarEditorConfig& config)
{
    for (const auto& field : config.m_fields)
        stream << field.show << field.title;
    return stream;
}

QDataStream& operator>>(QDataStream& stream, CCarEditorConfig& config)
{
    for (auto& field : config.m_fields) {
        field.show = readValue<bool>(stream);
        field.title = readValue<QString>(stream);
    }
    return stream;
}
