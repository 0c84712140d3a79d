// SPDX-License-Identifier: Apache-2.0
#include "tests/host/Desktop.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace qel::host::test {
namespace {

constexpr int screenWidth = 1600;
constexpr int screenHeight = 1200;

/// Between two looks at something that is waited for.
void pause() { std::this_thread::sleep_for(std::chrono::milliseconds(20)); }

int openForWriting(const std::filesystem::path& file) {
    return open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
}

} // namespace

/// A program that does not outlive this object.
class Desktop::Process {
public:
    /// What the program says goes to the two files.
    Process(const std::vector<std::string>& command, const std::filesystem::path& output,
            const std::filesystem::path& errors)
        : mId(fork()) {
        if (mId < 0) {
            throw std::runtime_error("no further process");
        }
        if (mId > 0) {
            return;
        }
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        dup2(openForWriting(output), STDOUT_FILENO);
        dup2(openForWriting(errors), STDERR_FILENO);
        std::vector<char*> arguments;
        for (const std::string& argument : command) {
            arguments.push_back(const_cast<char*>(argument.c_str()));
        }
        arguments.push_back(nullptr);
        execvp(arguments[0], arguments.data());
        _exit(127); // as a shell does
    }
    ~Process() {
        if (isRunning()) {
            kill(mId, SIGTERM); // which lets a display put its files away
            wait();
        }
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    bool isRunning() { return isRunning(WNOHANG); }
    /// Waits for its end and gives its exit code; -1 where a signal ended it.
    int wait() {
        isRunning(0);
        return WIFEXITED(mStatus) ? WEXITSTATUS(mStatus) : -1;
    }

private:
    bool isRunning(int options) {
        mRunning = mRunning && waitpid(mId, &mStatus, options) != mId;
        return mRunning;
    }

    pid_t mId;
    bool mRunning = true;
    int mStatus = 0;
};

struct Desktop::Connection {
    Display* display = nullptr;
    Window window = 0;
    int height = 0; ///< of the window

    explicit Connection(const std::string& name) : display(XOpenDisplay(name.c_str())) {
        if (display == nullptr) {
            throw std::runtime_error("the display " + name + " cannot be opened");
        }
    }
    ~Connection() { XCloseDisplay(display); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// The window on the screen, if there is one yet.
    bool findWindow() {
        Window root = 0;
        Window parent = 0;
        Window* children = nullptr;
        unsigned int count = 0;
        XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count);
        for (unsigned int i = 0; i < count; ++i) {
            XWindowAttributes attributes;
            if (XGetWindowAttributes(display, children[i], &attributes) != 0 && attributes.map_state == IsViewable &&
                attributes.c_class == InputOutput) {
                window = children[i];
                height = attributes.height;
            }
        }
        XFree(children);
        return window != 0;
    }

    void key(KeySym symbol, bool down) {
        XTestFakeKeyEvent(display, XKeysymToKeycode(display, symbol), down ? True : False, CurrentTime);
        XFlush(display);
    }
    void button(unsigned int number, bool down) {
        XTestFakeButtonEvent(display, number, down ? True : False, CurrentTime);
        XFlush(display);
    }
};

Desktop::Desktop(const std::vector<std::string>& command) {
    // The server takes a number that is free, and says which.
    std::array<int, 2> pipe{};
    if (pipe2(pipe.data(), 0) != 0) {
        throw std::runtime_error("no pipe");
    }
    fcntl(pipe[0], F_SETFD, FD_CLOEXEC);
    const std::string screen = std::to_string(screenWidth) + "x" + std::to_string(screenHeight) + "x24";
    const std::vector<std::string> server{
        "Xvfb", "-displayfd", std::to_string(pipe[1]), "-screen", "0", screen, "-nolisten", "tcp", "-noreset"};
    mServer = std::make_unique<Process>(server, mFolder / "server-output", mFolder / "server-errors");
    ::close(pipe[1]);
    std::string name = ":";
    for (char letter = 0; read(pipe[0], &letter, 1) == 1 && letter != '\n';) {
        name += letter;
    }
    ::close(pipe[0]);
    if (name == ":") {
        throw std::runtime_error("Xvfb does not start: " + readText(mFolder / "server-errors"));
    }

    mConnection = std::make_unique<Connection>(name);
    // The pointer waits where no window appears, so that nothing happens that the test does not do.
    XTestFakeMotionEvent(mConnection->display, 0, screenWidth - 1, screenHeight - 1, CurrentTime);
    XSync(mConnection->display, False);
    std::vector<std::string> program{"env", "DISPLAY=" + name, "LIBGL_ALWAYS_SOFTWARE=1"};
    program.insert(program.end(), command.begin(), command.end());
    mProgram = std::make_unique<Process>(program, mFolder / "output", mFolder / "errors");
    waitUntil([this] { return mConnection->findWindow(); });
    // Without a window manager nobody else says where the keys go, but the window itself, a little later.
    XSetInputFocus(mConnection->display, mConnection->window, RevertToParent, CurrentTime);
    XSync(mConnection->display, False);
}

Desktop::~Desktop() = default;

void Desktop::move(int x, int y) {
    int screenX = 0;
    int screenY = 0;
    Window child = 0;
    XTranslateCoordinates(mConnection->display, mConnection->window, DefaultRootWindow(mConnection->display), x,
                          mConnection->height - 1 - y, &screenX, &screenY, &child);
    XTestFakeMotionEvent(mConnection->display, 0, screenX, screenY, CurrentTime);
    XFlush(mConnection->display);
}

void Desktop::press(unsigned int button) { mConnection->button(button, true); }

void Desktop::release(unsigned int button) { mConnection->button(button, false); }

void Desktop::drag(unsigned int button, int fromX, int fromY, int toX, int toY) {
    constexpr int steps = 4;
    move(fromX, fromY);
    press(button);
    for (int i = 1; i <= steps; ++i) {
        move(fromX + (toX - fromX) * i / steps, fromY + (toY - fromY) * i / steps);
    }
    release(button);
}

void Desktop::turnWheel(int notches) {
    // A wheel is two buttons: 4 away from the person, 5 towards.
    const unsigned int button = notches > 0 ? Button4 : Button5;
    for (int i = 0; i < std::abs(notches); ++i) {
        press(button);
        release(button);
    }
}

void Desktop::holdShift(bool down) { mConnection->key(XK_Shift_L, down); }

void Desktop::type(char character) {
    const bool shift = character == '?';
    const KeySym symbol = shift ? XK_slash : static_cast<KeySym>(character); // Latin letters are their own symbols
    holdShift(shift);
    mConnection->key(symbol, true);
    mConnection->key(symbol, false);
    holdShift(false);
}

void Desktop::resize(int width, int height) {
    XResizeWindow(mConnection->display, mConnection->window, static_cast<unsigned int>(width),
                  static_cast<unsigned int>(height));
    XSync(mConnection->display, False);
    mConnection->height = height;
}

void Desktop::close() {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = mConnection->window;
    event.xclient.message_type = XInternAtom(mConnection->display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] =
        static_cast<long>(XInternAtom(mConnection->display, "WM_DELETE_WINDOW", False)); // NOLINT(google-runtime-int)
    XSendEvent(mConnection->display, mConnection->window, False, NoEventMask, &event);
    XFlush(mConnection->display);
}

Picture Desktop::look() {
    XWindowAttributes attributes;
    XGetWindowAttributes(mConnection->display, mConnection->window, &attributes);
    const auto width = static_cast<unsigned int>(attributes.width);
    const auto height = static_cast<unsigned int>(attributes.height);
    XImage* image = XGetImage(mConnection->display, mConnection->window, 0, 0, width, height, AllPlanes, ZPixmap);
    if (image == nullptr) {
        throw std::runtime_error("the window cannot be looked at");
    }
    Picture picture{attributes.width, attributes.height, {}};
    for (int row = 0; row < picture.height; ++row) {
        for (int column = 0; column < picture.width; ++column) {
            const unsigned long pixel = XGetPixel(image, column, row); // 8 bits each of red, green and blue
            for (const unsigned int shift : {16U, 8U, 0U}) {
                picture.bytes.push_back(static_cast<std::uint8_t>(pixel >> shift));
            }
            picture.bytes.push_back(255);
        }
    }
    XDestroyImage(image);
    return picture;
}

Picture Desktop::waitFor(const std::function<bool(const Picture&)>& condition) {
    Picture picture;
    waitUntil([&] { return condition(picture = look()); });
    return picture;
}

void Desktop::waitUntil(const std::function<bool()>& condition) {
    while (!condition()) {
        if (!mProgram->isRunning()) {
            throw std::runtime_error("the program has ended: " + errors());
        }
        pause();
    }
}

int Desktop::wait() { return mProgram->wait(); }

} // namespace qel::host::test
