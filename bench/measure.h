#pragma once

#include "mesh/KMMeshNode.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <string>

// What all measurements have in common.

/// Of all threads of the process: other programs may be at work.
inline double processorSeconds()
{
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + 1e-9 * double(now.tv_nsec);
}

/// A piece of work is called; what it does in prepare(), if it has one, isn't measured.
template <class Work>
auto prepare(Work &work, int) -> decltype(work.prepare())
{
    work.prepare();
}

template <class Work>
void prepare(Work &, long)
{
}

template <class Work>
double secondsOf(Work &work)
{
    prepare(work, 0);
    const double start = processorSeconds();
    work();
    return processorSeconds() - start;
}

/// The best of so many rounds of our work, beside a plain loop by turns with it.
template <class Ours, class Plain>
void measure(benchmark::State &state, Ours &&ours, Plain &&plain, int rounds = 7)
{
    double best = 1e9;
    double bestPlain = 1e9;
    for (auto _ : state) {
        for (int round = 0; round < rounds; ++round) {
            best = std::min(best, secondsOf(ours));
            bestPlain = std::min(bestPlain, secondsOf(plain));
        }
        state.SetIterationTime(best);
    }
    state.counters["ms"] = best * 1e3;
    state.counters["plain_ms"] = bestPlain * 1e3;
    state.counters["ratio"] = best / bestPlain;
}

/// A square of about so many quads; place(i, j) says where the vertex of a row and a column stands.
template <class Place>
void addGrid(KMMeshNode &mesh, int quads, Place place)
{
    const int side = int(std::lround(std::sqrt(double(quads))));
    const int row = side + 1;
    mesh.reserve(row * row, side * side);
    for (int i = 0; i < row * row; ++i)
        mesh.addVertexRaw(place(float(i % row), float(i / row)));
    for (int i = 0; i < side * side; ++i) {
        const int first = i / side * row + i % side;
        const int corners[] = {first, first + 1, first + row + 1, first + row};
        mesh.addFaceRaw(4, corners);
    }
}

inline void registerSizes(const std::string &name, void (*run)(benchmark::State &))
{
    benchmark::RegisterBenchmark(name.c_str(), run)
        ->Arg(10000)
        ->Arg(100000)
        ->Arg(200000)
        ->Arg(1000000)
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
}
