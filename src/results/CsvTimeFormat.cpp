#include "results/CsvTimeFormat.h"

#include "shell/CSettings.h"

QString csvTimeFormat(int storageFormat)
{
    switch (storageFormat) {
    case CSettings::MinutesColonMilliseconds:
        // The quotation marks and the tab keep a spreadsheet from taking the value for a clock time.
        return QStringLiteral("\"mm:ss:zzz\t\"");
    case CSettings::SecondsComma:
        // Required: this format has no minutes, so that they are lost.
        return QStringLiteral("s,zzz");
    default:
        return QStringLiteral("mm:ss,zzz");
    }
}
