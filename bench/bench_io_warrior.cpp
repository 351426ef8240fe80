/**
 * The stamps of the IO-Warrior's reading thread, on the stand-in library; see StampDelay.h. A chip
 * that answers in 8 ms is read some 120 times a second, and a change is seen with the next answer.
 */
#include "StampDelay.h"
#include "io/CIoWarriorThread.h"
#include "support/TestChip.h"

#include <benchmark/benchmark.h>
#include <memory>

namespace {

/** One chip for the whole process, made before its first use. */
TestChip& chip()
{
    static TestChip testChip;
    return testChip;
}

std::unique_ptr<CIoWarriorThread> makeThread(QObject* target)
{
    auto thread = std::make_unique<CIoWarriorThread>();
    thread->setTarget(target);
    return thread;
}

/** The pins that are low are the number and, so that 0 is a change too, one above it. */
constexpr quint32 Shown = 0x8000;

class Numbers
{
public:
    void show(int number)
    {
        const quint32 low = quint32(number) | Shown;
        chip()->flip(m_low ^ low);
        m_low = low;
    }
    static int of(int value) { return int(~quint32(value) & (Shown - 1)); }

private:
    quint32 m_low = 0;
};

void ioWarriorStampDelay(benchmark::State& state, unsigned productId, unsigned shortestPause, double limit)
{
    chip().plug(productId);
    Numbers numbers;
    const StampDelay::Input input{[] { return chip().count(VirtualIoWarrior::Asked); },
                                  [&numbers](int number) { numbers.show(number); },
                                  &Numbers::of,
                                  1000,
                                  shortestPause,
                                  limit};
    StampDelay::measure(state, input, makeThread);
}

// The changes lie further apart than an answer takes, so that none can be missed; a millisecond on
// top is that of the stamp.
BENCHMARK_CAPTURE(ioWarriorStampDelay, ioWarrior40, TestChip::Warrior40, 12000U, 9.0)->Iterations(1);
BENCHMARK_CAPTURE(ioWarriorStampDelay, ioWarrior24, TestChip::Warrior24, 12000U, 9.0)->Iterations(1);
BENCHMARK_CAPTURE(ioWarriorStampDelay, ioWarrior56, TestChip::Warrior56, 3000U, 2.0)->Iterations(1);

} // namespace

int main(int argc, char* argv[])
{
    chip();
    return StampDelay::run(argc, argv, QStringLiteral(VIRTUAL_IOWKIT));
}
