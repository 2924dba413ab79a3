// The workbench among the scenes: the window of all classes together, with a document of its own.
#pragma once

#include <tests/storm/Step.h>

#include <WorkbenchWindow.h>

namespace corvidlmw::storm {

class World;

class Workbench {
public:
    explicit Workbench(World &world);
    ~Workbench();
    Workbench(const Workbench &) = delete;
    Workbench &operator=(const Workbench &) = delete;

    // One of the window's commands; false where there is none of that name.
    bool Do(const Step &step);

private:
    void Open(const std::string &text);

    World &world_;
    workbench::WorkbenchWindow window_;
};

} // namespace corvidlmw::storm
