// How long the reader looks at one picture of 1280 x 720, with a code in it and without; beside it
// the conversion of a colour picture of that size to grey.

#include "support/CodePictures.h"

#include <benchmark/benchmark.h>

namespace {

QZXing readersDecoder()
{
    QZXing decoder;
    decoder.setDecoder(QZXing::DecodeQrCode);
    decoder.setSourceFilterType(QZXing::NormalImage | QZXing::InvertedImage);
    decoder.setTryHarderBehaviour(QZXing::ThoroughScanning | QZXing::Rotation);
    return decoder;
}

void decode(benchmark::State& state, const QImage& picture, bool expected)
{
    const QZXing decoder = readersDecoder();
    for (auto _ : state) {
        if (decoder.decodeImage(picture).isEmpty() == expected) {
            state.SkipWithError("the picture doesn't hold what it should");
            return;
        }
    }
}

QImage withCode(double angle)
{
    return CodePictures::scene("<drv>Anna", CodePictures::upright(240, angle))
        .convertToFormat(QImage::Format_RGB32);
}

QImage withoutCode()
{
    const auto farAway = QTransform::fromTranslate(10.0 * CodePictures::Width, 0);
    const QImage shelf = CodePictures::scene("<drv>Anna", farAway);
    return CodePictures::noisy(shelf, 4, 1).convertToFormat(QImage::Format_RGB32);
}

void toGrey(benchmark::State& state)
{
    const QImage picture = withCode(0);
    for (auto _ : state)
        benchmark::DoNotOptimize(picture.convertToFormat(QImage::Format_Grayscale8));
}

} // namespace

int main(int argc, char** argv)
{
    const QImage upright = withCode(0);
    const QImage turned = withCode(37);
    const QImage inverted = CodePictures::inverted(upright);
    const QImage poor = CodePictures::dark(upright.convertToFormat(QImage::Format_Grayscale8), 12, 1);
    const QImage none = withoutCode();
    benchmark::RegisterBenchmark("yardstick: to grey", toGrey)->Unit(benchmark::kMillisecond);
    for (const auto& [name, picture] : {std::pair<const char*, const QImage*>{"code", &upright},
                                        {"code turned by 37 degrees", &turned},
                                        {"code inverted", &inverted},
                                        {"code in very low light", &poor}}) {
        benchmark::RegisterBenchmark(name, [picture = *picture](benchmark::State& state) {
            decode(state, picture, true);
        })->Unit(benchmark::kMillisecond);
    }
    benchmark::RegisterBenchmark("no code", [none](benchmark::State& state) {
        decode(state, none, false);
    })->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
