// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/render/Picture.h"
#include "tests/host/TemporaryFolder.h"

namespace qel::host::test {

inline constexpr unsigned int left = 1; ///< a mouse's buttons
inline constexpr unsigned int middle = 2;
inline constexpr unsigned int right = 3;

/// A display of its own, without a window manager, and one program in its one window. The events come from the display,
/// as they do when a person makes them, and in the order of the calls. Positions are pixels of the window, (0, 0) the
/// lower left one, as in pictures that are talked about.
///
/// What takes time is waited for until it is there, however long that takes: the time limit is the test's.
class Desktop {
public:
    /// Starts the display and the program, and waits for the window.
    explicit Desktop(const std::vector<std::string>& command);
    ~Desktop();

    void move(int x, int y);
    void press(unsigned int button);
    void release(unsigned int button);
    /// Over some places between.
    void drag(unsigned int button, int fromX, int fromY, int toX, int toY);
    void turnWheel(int notches);
    /// As a person finds it on the keyboard: a question mark with shift.
    void type(char character);
    void holdShift(bool down);
    void resize(int width, int height);
    /// As the button in a window's frame does.
    void close();

    /// What the window shows now.
    [[nodiscard]] Picture look();
    /// Looks until the condition holds. Throws std::runtime_error where the program ends before.
    Picture waitFor(const std::function<bool(const Picture&)>& condition);
    /// Waits until the condition holds, likewise.
    void waitUntil(const std::function<bool()>& condition);

    /// Waits for the program's end and gives its exit code.
    int wait();
    [[nodiscard]] std::string output() const { return readText(mFolder / "output"); }
    [[nodiscard]] std::string errors() const { return readText(mFolder / "errors"); }

private:
    class Process;
    struct Connection;

    // The program goes before what it is drawn on.
    TemporaryFolder mFolder;
    std::unique_ptr<Process> mServer;
    std::unique_ptr<Connection> mConnection;
    std::unique_ptr<Process> mProgram;
};

} // namespace qel::host::test
