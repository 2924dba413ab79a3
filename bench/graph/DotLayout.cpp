#include <bench/graph/DotLayout.h>

#include <benchmark/benchmark.h>

#include <gvc.h>

#include <string>
#include <vector>

namespace corvidlmw::bench {

namespace {

void Set(void *object, const char *name, const char *value) {
    agsafeset(object, const_cast<char *>(name), const_cast<char *>(value), const_cast<char *>(""));
}

// Boxes of a push button's size without text, so that no font is measured.
Agraph_t *MakeGraph(const Shape &shape) {
    Agraph_t *graph = agopen(const_cast<char *>("shape"), Agdirected, nullptr);
    Set(graph, "rankdir", "LR");
    std::vector<Agnode_t *> nodes;
    for (int i = 0; i < shape.nodes; ++i) {
        Agnode_t *node = agnode(graph, std::to_string(i).data(), 1);
        Set(node, "shape", "box");
        Set(node, "label", "");
        Set(node, "fixedsize", "true");
        Set(node, "width", "0.8");
        Set(node, "height", "0.35");
        nodes.push_back(node);
    }
    for (const Edge &edge : shape.edges) {
        agedge(graph, nodes[static_cast<std::size_t>(edge.from)],
               nodes[static_cast<std::size_t>(edge.to)], nullptr, 1);
    }
    return graph;
}

void LayOut(benchmark::State &state, const Shape &shape) {
    GVC_t *context = gvContext();
    Agraph_t *graph = MakeGraph(shape);
    for ([[maybe_unused]] auto _ : state) {
        gvLayout(context, graph, "dot");
        state.PauseTiming();
        gvFreeLayout(context, graph);
        state.ResumeTiming();
    }
    agclose(graph);
    gvFreeContext(context);
}

class Keeper final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override {
        for (const Run &run : runs) {
            seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
        }
    }

    double seconds = 0;
};

} // namespace

double TimeOfDotLayout(const Shape &shape) {
    constexpr int iterations = 3;
    benchmark::RegisterBenchmark("dot", [&](benchmark::State &state) { LayOut(state, shape); })
        ->Iterations(iterations)
        ->MeasureProcessCPUTime();
    Keeper keeper;
    benchmark::RunSpecifiedBenchmarks(&keeper);
    return keeper.seconds;
}

} // namespace corvidlmw::bench
