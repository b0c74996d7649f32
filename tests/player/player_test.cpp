// The player on files, on a server that comes and goes, and on what cannot be played. Its clock runs a
// hundred times as fast, so that tests need not wait.
#include "player/Player.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <mutex>
#include <thread>
#include <vector>

#include "MediaFiles.h"
#include "TestFiles.h"

using namespace fovix_host;
using namespace std::chrono_literals;
using std::chrono::steady_clock;

namespace {

PlayerSettings fast(double speed = 100) {
    return {.stall = 60, .speed = speed};
}

// A player with what it said and showed.
class Stage {
  public:
    explicit Stage(
        PlayerInput input, const PlayerSettings& settings = fast(), std::function<void()> onShow = [] {})
        : _onShow(std::move(onShow)),
          player(std::move(input), settings,
                 {[this](const PackedFrame& frame) { shown(frame); },
                  [this](const std::string& message) {
                      const std::lock_guard lock(_mutex);
                      _said += message + "\n";
                  }}) {}

    std::string said() const {
        const std::lock_guard lock(_mutex);
        return _said;
    }
    PlayerStatus status() const { return player.status(); }
    // Waits for something to come true.
    template <typename Condition>
    bool comes(Condition condition) const {
        const auto end = steady_clock::now() + 20s;
        while (!condition() && steady_clock::now() < end) std::this_thread::sleep_for(1ms);
        return condition();
    }
    bool shows(int number) const {
        return comes([&] { return lastNumber == number; });
    }
    bool decodes(long atLeast) const {
        return comes([&] { return status().decoded >= atLeast; });
    }
    bool reaches(PlayerState state) const {
        return comes([&] { return status().state == state; });
    }
    bool says(const std::string& words) const {
        return comes([&] { return said().find(words) != std::string::npos; });
    }

  private:
    void shown(const PackedFrame& frame) {
        _onShow();
        const int luma = frame.data[frame.width * (frame.height * 3 / 4) + frame.width * 3 / 4];
        lastNumber = static_cast<int>(std::lround((luma - kQuadrants[3].y) / double{kLumaStep}));
    }

    mutable std::mutex _mutex;
    std::function<void()> _onShow;
    std::string _said;

  public:
    std::atomic<int> lastNumber = -1;  // of the frame shown last, of the first dozen that writeMedia makes
    Player player;                     // last: it calls back
};

std::string video(const std::string& name, int frames, int width = 64, int height = 48,
                  const char* encoder = "mpeg4") {
    writeMedia(fileInTest(name), encoder, AV_PIX_FMT_YUV420P, width, height, frames);
    return fileInTest(name);
}

TEST(Player, PlaysAFileToItsEndAtItsPace) {
    const std::string file = video("short.mp4", 12);
    const auto start = steady_clock::now();
    Stage stage(file, fast(1));
    ASSERT_TRUE(stage.reaches(PlayerState::kEnded));
    EXPECT_GE(steady_clock::now() - start, 470ms) << "each stays for its length, the last one too";
    const PlayerStatus status = stage.status();
    EXPECT_EQ(status.width, 64);
    EXPECT_EQ(status.height, 48);
    EXPECT_EQ(status.decoded, 12);
    EXPECT_EQ(status.shown + status.dropped, 12);
    EXPECT_GT(status.shown, 0);
    EXPECT_NEAR(*status.duration, 12 / 25.0, .001);
    EXPECT_EQ(stage.said(), "");
    EXPECT_TRUE(stage.player.seekTo(0.2));
    EXPECT_TRUE(stage.decodes(12 + 7)) << "continues from there";
}

TEST(Player, DropsFramesThatCannotBeShownInTime) {
    Stage stage(video("long.mp4", 100), fast(2), [] { std::this_thread::sleep_for(45ms); });
    ASSERT_TRUE(stage.decodes(40));
    const PlayerStatus status = stage.status();
    EXPECT_GT(status.dropped, 10);
    EXPECT_GT(status.shown, 3);
    EXPECT_LE(status.framesPerSecond, 12);
}

TEST(Player, RepeatsItsInputInALoop) {
    for (const auto& [name, frames] :
         {std::pair{"one.mp4", 1}, std::pair{"few.ts", 5}, std::pair{"raw.m4v", 5}}) {
        Stage stage(video(name, frames), {.loop = true, .stall = 60, .speed = 100});
        EXPECT_TRUE(stage.decodes(24)) << name;
        EXPECT_EQ(stage.said(), "") << name;
    }
}

TEST(Player, SeeksStepsAndPauses) {
    Stage stage(video("long.mp4", 50), {.paused = true, .start = 0.12, .speed = 100});
    ASSERT_TRUE(stage.shows(3)) << "the first frame, paused or not";
    EXPECT_EQ(stage.status().state, PlayerState::kPaused);
    for (int i = 0; i < 200; ++i) EXPECT_TRUE(stage.player.seekTo(i * 0.01));
    EXPECT_TRUE(stage.player.seekTo(0.2));
    EXPECT_TRUE(stage.player.seekBy(0.04));
    EXPECT_NEAR(stage.player.position(), 0.24, 1e-9) << "at once, wherever the decoder is";
    EXPECT_TRUE(stage.shows(6));
    const long before = stage.status().shown;
    EXPECT_LT(before, 200) << "fast seeks collapse";
    stage.player.step();
    EXPECT_TRUE(stage.shows(7));
    EXPECT_EQ(stage.status().shown, before + 1);
    EXPECT_TRUE(stage.player.seekBy(1e9));
    EXPECT_TRUE(stage.comes([&] { return stage.player.position() == 49 / 25.0; })) << stage.player.position();
    EXPECT_TRUE(stage.player.seekTo(-5));
    EXPECT_TRUE(stage.shows(0));
    EXPECT_FALSE(stage.player.seekTo(std::nan("")));
    stage.player.pause(false);
    EXPECT_TRUE(stage.reaches(PlayerState::kEnded));
}

TEST(Player, ShowsAStillOnceAndTheSampleOnAndOn) {
    writeMedia(fileInTest("still.jpg"), "mjpeg", AV_PIX_FMT_YUVJ420P, 64, 48, 1);
    Stage still(fileInTest("still.jpg"));
    ASSERT_TRUE(still.reaches(PlayerState::kStill));
    EXPECT_EQ(still.status().shown, 1);
    EXPECT_FALSE(still.player.seekTo(0));
    Stage sample(openSample(SampleScene::Camera::kCeiling, 64, 64));
    EXPECT_TRUE(sample.decodes(10));
    EXPECT_FALSE(sample.player.seekBy(1));
}

TEST(Player, FailsWithASentence) {
    for (const std::string& input : {fileInTest("missing.mp4"), std::string("nothing://here")}) {
        Stage stage(input);
        EXPECT_TRUE(stage.reaches(PlayerState::kFailed)) << input;
        EXPECT_TRUE(stage.status().message.starts_with("'" + input + "' ")) << stage.said();
    }
    Stage stage(video("short.mp4", 3), fast(), [] { throw std::runtime_error("no room for frames"); });
    EXPECT_TRUE(stage.reaches(PlayerState::kFailed));
    EXPECT_EQ(stage.said(), "no room for frames\n");
}

// Times jump back and the size changes in the middle, where two recordings were joined; then come damage
// and an end in the middle of a packet.
TEST(Player, PlaysWhatWasJoinedAndDamaged) {
    std::string joined = readText(video("small.ts", 30, 64, 48, "mpeg2video")) +
                         readText(video("large.ts", 30, 160, 120, "mpeg2video"));
    joined.replace(joined.size() - 3000, 400, 400, '\x55');
    joined.resize(joined.size() - 1000);
    writeText(fileInTest("joined.ts"), joined);
    Stage stage(fileInTest("joined.ts"));
    ASSERT_TRUE(stage.reaches(PlayerState::kEnded));
    EXPECT_EQ(stage.status().width, 160);
    EXPECT_GT(stage.status().decoded, 50);
}

// Serves the same bytes to one caller after the other, once it listens; the last one waits for more in vain.
class Server {
  public:
    explicit Server(const std::string& protocol = "tcp")
        : _socket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        bind(_socket, reinterpret_cast<sockaddr*>(&address), size);
        getsockname(_socket, reinterpret_cast<sockaddr*>(&address), &size);
        name = protocol + "://127.0.0.1:" + std::to_string(ntohs(address.sin_port));
    }
    ~Server() {
        shutdown(_socket, SHUT_RDWR);
        if (_thread.joinable()) _thread.join();
        for (const int caller : _held) close(caller);
        close(_socket);
    }
    void listenFor(int callers, const std::string& bytes) {
        listen(_socket, 5);
        _thread = std::thread([this, callers, bytes] {
            for (int left = callers; left > 0; --left) {
                const int caller = accept(_socket, nullptr, nullptr);
                if (caller < 0) return;
                send(caller, bytes.data(), bytes.size(), MSG_NOSIGNAL);
                if (left > 1) shutdown(caller, SHUT_WR);
                _held.push_back(caller);
            }
        });
    }
    std::string name;

  private:
    int _socket;
    std::vector<int> _held;
    std::thread _thread;
};

TEST(Player, OpensALostStreamAgain) {
    Server server;
    const std::string name = "'" + server.name + "'";
    Stage stage(server.name);
    ASSERT_TRUE(stage.says("retrying in 2 s"));
    EXPECT_TRUE(stage.said().starts_with(name + " cannot be opened: Connection refused; retrying in 1 s\n"));
    server.listenFor(3, readText(video("stream.ts", 60, 64, 48, "mpeg2video")));
    ASSERT_TRUE(stage.says(name + " is available now\n" + name + " disconnected; retrying in 1 s\n" + name +
                           " is back\n"))
        << stage.said();
    EXPECT_FALSE(stage.player.seekTo(0)) << "it is live";
    EXPECT_TRUE(stage.says(name + " sends no data; retrying in ")) << "the last caller gets no end";
    EXPECT_EQ(stage.said().find("cannot seek"), std::string::npos) << stage.said();
}

TEST(Player, RestartsWhereAServerCannotResume) {
    const std::string film = readText(video("film.mkv", 60, 160, 120, "rawvideo"));
    Server server("http");  // sends all of it, whatever part is asked for
    server.listenFor(30,
                     "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(film.size()) + "\r\n\r\n" + film);
    Stage stage(server.name, {.start = 2, .stall = 60, .speed = 100});
    EXPECT_TRUE(stage.reaches(PlayerState::kEnded)) << "it is lost again and again:\n" << stage.said();
}

TEST(Player, EndsAtOnceWhateverItWaitsFor) {
    Server silent, closed;
    silent.listenFor(1, "");
    const std::string unopened = fileInTest("unopened"), idle = fileInTest("idle");
    for (const std::string& pipe : {unopened, idle}) ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const int writer = open(idle.c_str(), O_RDWR | O_CLOEXEC);
    for (const auto& [input, state] :
         {std::pair{silent.name, PlayerState::kOpening}, std::pair{closed.name, PlayerState::kReconnecting},
          std::pair{unopened, PlayerState::kOpening}, std::pair{idle, PlayerState::kOpening},
          std::pair{video("slow.mp4", 5), PlayerState::kPlaying}}) {
        std::optional<Stage> stage(std::in_place, input, fast(0.01));
        EXPECT_TRUE(stage->reaches(state)) << input;
        std::this_thread::sleep_for(20ms);
        const auto start = steady_clock::now();
        stage.reset();
        EXPECT_LT(steady_clock::now() - start, 500ms) << input;
    }
    close(writer);
}

TEST(Player, TakesCallsFromAnyThread) {
    Stage stage(video("long.mp4", 60), {.loop = true, .stall = 60, .speed = 100});
    std::atomic<bool> ending = false;
    const auto call = [&] {
        for (int i = 0; !ending; ++i) {
            stage.player.pause(i % 3 == 0);
            stage.player.seekBy(i % 2 ? 0.7 : -0.5);
            if (i % 5 == 0) stage.player.step();
            const PlayerStatus status = stage.status();
            EXPECT_LE(status.shown, status.decoded);
            std::this_thread::sleep_for(200us);
        }
    };
    std::thread one(call), other(call);
    EXPECT_TRUE(stage.comes([&] { return stage.status().shown > 100; }));
    ending = true;
    one.join();
    other.join();
}

}  // namespace
