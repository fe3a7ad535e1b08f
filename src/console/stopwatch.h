// Elapsed time in microseconds of the real-time clock, counted from the process's first reading.
#ifndef CONSOLE_STOPWATCH_H
#define CONSOLE_STOPWATCH_H

#include <cstdint>
#include <ctime>

class Stopwatch {
public:
    void RestartFromZero() {
        accumulated_ = 0;
        start_ = Stamp();
        running_ = true;
    }

    // The microseconds that have run so far.
    int64_t Reading() const { return accumulated_ + (running_ ? Stamp() - start_ : 0); }

private:
    static int64_t Stamp() {
        timespec now{};
        clock_gettime(CLOCK_REALTIME, &now);
        const int64_t reading = static_cast<int64_t>(now.tv_sec) * 1000000 + now.tv_nsec / 1000;
        static const int64_t first = reading;
        return reading - first;
    }

    int64_t accumulated_ = 0;
    int64_t start_ = 0;
    bool running_ = false;
};

#endif
