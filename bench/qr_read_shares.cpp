// How many pictures of each distortion are read, by this program's reader and by zbar. Prints the
// table of docs/reading-codes.md, and fails unless this program reads more, and nothing wrong.
//
// usage: qr_read_shares [--every <n>] [<directory>]
//   --every <n>   looks at each n-th picture only
//   <directory>   where the pictures are left

#include "support/CodePictures.h"

#include <QCommandLineParser>
#include <QCoreApplication>
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

Share shareOf(const CodePictures::Kind& kind, size_t every, const QString& directory)
{
    QZXing decoder;
    decoder.setDecoder(QZXing::DecodeQrCode);
    decoder.setSourceFilterType(QZXing::NormalImage | QZXing::InvertedImage);
    decoder.setTryHarderBehaviour(QZXing::ThoroughScanning | QZXing::Rotation);
    Share share;
    for (size_t number = 0; number < kind.pictures.size(); number += every) {
        const CodePictures::Picture& picture = kind.pictures[number];
        const QImage image = picture.make();
        const QString own = decoder.decodeImage(image);
        share.own += own == picture.text;
        share.wrong += !own.isEmpty() && own != picture.text;
        share.foreign += zbarText(image) == picture.text;
        if (!directory.isEmpty())
            image.save(QString("%1/%2-%3.png").arg(directory, kind.name).arg(number, 3, 10, QChar('0')));
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
    QCommandLineParser parser;
    const QCommandLineOption everyOption("every", "Looks at each n-th picture only.", "n", "1");
    parser.addOption(everyOption);
    parser.addPositionalArgument("directory", "Where the pictures are left.", "[directory]");
    parser.addHelpOption();
    const QCoreApplication application(argc, argv);
    parser.process(application);
    const int every = parser.value(everyOption).toInt();
    if (every < 1)
        parser.showHelp(EXIT_FAILURE);
    const QString directory = parser.positionalArguments().value(0);
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    out << "| Distortion | Levels | Pictures | Tornik | zbar |\n|---|---|---|---|---|\n";
    Share total;
    for (const CodePictures::Kind& kind : CodePictures::kinds()) {
        const Share share = shareOf(kind, size_t(every), directory);
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
    return total.own > total.foreign && total.wrong == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
