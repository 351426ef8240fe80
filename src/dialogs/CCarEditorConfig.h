#ifndef TORNIK_DIALOGS_CCAREDITORCONFIG_H
#define TORNIK_DIALOGS_CCAREDITORCONFIG_H

#include "data/CCar.h"

#include <QCoreApplication>

/**
 * Which of the free fields of a car its editor shows, and under which titles.
 *
 * A value, copied freely, with its place in the settings store of the application. A constructed one
 * shows no field and has no titles.
 */
class CCarEditorConfig
{
    Q_DECLARE_TR_FUNCTIONS(CCarEditorConfig)

public:
    static constexpr int NumberOfFields = CCar::NumberOfFreeFields;

    /** @param index 0 to 9; any other is a field that isn't shown */
    bool showFreeField(int index) const;
    /** @param index 0 to 9; any other is ignored */
    void setShowFreeField(int index, bool show);
    /** @param index 0 to 9; any other has an empty title */
    QString titleFreeField(int index) const;
    /** @param index 0 to 9; any other is ignored */
    void setTitleFreeField(int index, const QString& title);

    /** Reads from the settings store; a missing key gives its default. */
    void read();
    /** Writes to the settings store. */
    void write() const;

private:
    struct FreeField
    {
        bool show = false;
        QString title;
    };

    static FreeField defaultOf(int index);

    friend QDataStream& operator<<(QDataStream& stream, const CCarEditorConfig& config);
    friend QDataStream& operator>>(QDataStream& stream, CCarEditorConfig& config);

    std::array<FreeField, NumberOfFields> m_fields;
};

/** Stream form: of each field in turn whether it is shown, a bool, and its title, a string. */
QDataStream& operator<<(QDataStream& stream, const CCarEditorConfig& config);
QDataStream& operator>>(QDataStream& stream, CCarEditorConfig& config);

#endif
