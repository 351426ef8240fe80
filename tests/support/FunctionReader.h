#ifndef TORNIK_TESTS_SUPPORT_FUNCTIONREADER_H
#define TORNIK_TESTS_SUPPORT_FUNCTIONREADER_H

#include "qr/CQrCodeReaderDialog.h"
#include "shell/CSettings.h"

#include <functional>
#include <memory>

/** Reads codes by a function, without a camera. */
class FunctionReader : public CQrCodeReaderDialog
{
public:
    explicit FunctionReader(std::function<QString()> read)
        : CQrCodeReaderDialog(&settingsWithoutCamera()), m_read(std::move(read))
    {
    }
    QString readCode() override { return m_read(); }

private:
    static const CSettings& settingsWithoutCamera()
    {
        static const CSettings settings;
        return settings;
    }

    std::function<QString()> m_read;
};

#endif
