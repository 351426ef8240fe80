// How many pictures of each distortion are read, by this program's reader and by zbar. Prints the
// table of docs/reading-codes.md. With a directory as its argument it leaves the pictures there.

#include "CodePictures.h"

#include <QDir>
#include <QTextStream>

#include <zbar.h>

namespace {

/** @return the text that zbar finds, both as the picture is and inverted. */
QString zbarText(const QImage& picture)
{
    zbar::ImageScanner scanner;
    scanner.set_config(zbar::ZBAR_NONE, zbar::ZBAR_CFG_ENABLE, 0);
    scanner.set_config(zbar::ZBAR_QRCODE, zbar::ZBAR_CFG_ENABLE, 1);
    scanner.set_config(zbar::ZBAR_NONE, zbar::ZBAR_CFG_TEST_INVERTED, 1);
    const QImage tight = picture.copy(); // 1280 dots a line need no padding
    zbar::Image image(uint(tight.width()), uint(tight.height()), "Y800", tight.constBits(),
                      ulong(tight.width() * tight.height()));
    scanner.scan(image);
    for (auto symbol = image.symbol_begin(); symbol != image.symbol_end(); ++symbol)
        return QString::fromStdString(symbol->get_data());
    return QString();
}

struct Share
{
    int own = 0;
    int foreign = 0;
    int all = 0;
    int wrong = 0;
};

Share shareOf(const CodePictures::Kind& kind, const QString& directory)
{
    QZXing decoder;
    decoder.setDecoder(QZXing::DecodeQrCode);
    decoder.setSourceFilterType(QZXing::NormalImage | QZXing::InvertedImage);
    decoder.setTryHarderBehaviour(QZXing::ThoroughScanning | QZXing::Rotation);
    Share share;
    for (const CodePictures::Picture& picture : kind.make()) {
        const QString own = decoder.decodeImage(picture.image);
        share.own += own == picture.text;
        share.wrong += !own.isEmpty() && own != picture.text;
        share.foreign += zbarText(picture.image) == picture.text;
        if (!directory.isEmpty())
            picture.image.save(
                QString("%1/%2-%3.png").arg(directory, kind.name).arg(share.all, 3, 10, QChar('0')));
        ++share.all;
    }
    return share;
}

QString percent(int read, int all)
{
    return QString("%1 %").arg(100.0 * read / all, 0, 'f', 1);
}

} // namespace

int main(int argc, char** argv)
{
    const QString directory = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    out << "| Distortion | Levels | Pictures | Tornik | zbar |\n|---|---|---|---|---|\n";
    Share total;
    for (const CodePictures::Kind& kind : CodePictures::kinds()) {
        const Share share = shareOf(kind, directory);
        out << "| " << kind.name << " | " << kind.levels << " | " << share.all << " | "
            << percent(share.own, share.all) << " | " << percent(share.foreign, share.all) << " |\n";
        out.flush();
        total.own += share.own;
        total.foreign += share.foreign;
        total.all += share.all;
        total.wrong += share.wrong;
    }
    out << "| **total** | | " << total.all << " | " << percent(total.own, total.all) << " | "
        << percent(total.foreign, total.all) << " |\n";
    out << "\nWrong texts: " << total.wrong << "\n";
    return 0;
}
