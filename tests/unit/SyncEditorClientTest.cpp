// The editor link against a scripted editor on 127.0.0.1; garbage and hang-ups stop nothing.
#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <cstring>
#include <functional>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "demosys/SyncEditorClient.h"
#include "demosys/SyncPlayer.h"
#include "demosys/SyncTrack.h"
#include "support/TestSupport.h"

namespace {

std::string word(uint32_t value) { return {char(value >> 24), char(value >> 16), char(value >> 8), char(value)}; }
std::string setKey(uint32_t track, uint32_t row, float value, char type) {
    uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    return '\0' + word(track) + word(row) + word(bits) + type;
}

// One listening socket, one editor connection at a time.
class ScriptedEditor {
public:
    ScriptedEditor() {
        sockaddr_in address{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
        socklen_t size = sizeof address;
        bind(listener, reinterpret_cast<sockaddr*>(&address), size), listen(listener, 4);
        getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
        port = ntohs(address.sin_port);
    }
    ~ScriptedEditor() { hangUp(), close(listener); }
    // Takes a waiting connection, then gathers what the demo sent; waits at most 2 ms.
    void poll() {
        pollfd ready{peer >= 0 ? peer : listener, POLLIN, 0};
        ::poll(&ready, 1, 2);
        if (peer < 0) peer = accept(listener, nullptr, nullptr);
        char buffer[256];
        for (ssize_t n; peer >= 0 && (n = recv(peer, buffer, sizeof buffer, MSG_DONTWAIT)) > 0;) heard.append(buffer, n);
    }
    void say(const std::string& bytes) { ASSERT_EQ(send(peer, bytes.data(), bytes.size(), 0), ssize_t(bytes.size())); }
    void hangUp() { close(peer), peer = -1; }
    int listener = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0), peer = -1;
    unsigned short port;
    std::string heard;
};

class SyncEditorLink : public ::testing::Test {
protected:
    SyncEditorLink() : player(120.0, 4, dir.path() + "/saved/demo"), client(player, "127.0.0.1", editor.port) {
        player.bind(SyncBinding{"logo", "setPosition", {"logo:x", "logo:y"}, 0}, nullptr);
        player.bind(SyncBinding{"text", "setPosition", {"logo:y", "text:x"}, 0}, nullptr);
        player.getTrack(0)->setKey(0, 9.0f, SyncTrack::STEP);  // as read from its file
        client.onSeek = [this](unsigned int row) { events += "seek " + std::to_string(row) + ";"; };
        client.onPause = [this](bool paused) { events += paused ? "pause;" : "play;"; };
    }
    // Frames 25 ms of wall time apart each until the condition holds.
    bool frames(const std::function<bool()>& until, double row = 0, bool playing = false, int most = 200) {
        for (int i = 0; i < most; ++i) {
            log += testsupport::captureStdout([&] { client.update(wall += 25, row, playing); });
            editor.poll();
            if (until()) return true;
        }
        return false;
    }
    void greet() {
        ASSERT_TRUE(frames([&] { return editor.heard == "hello, synctracker!"; }));
        editor.heard.clear();
        editor.say("hello, demo!");
        ASSERT_TRUE(frames([&] { return client.isConnected(); }));
    }

    testsupport::TempDir dir;
    ScriptedEditor editor;
    SyncPlayer player;
    SyncEditorClient client;
    unsigned int wall = 0;
    std::string events, log;
};

TEST_F(SyncEditorLink, PlaysTheRecordedConversation) {
    greet();
    // Every bound track once, in the order of first use; the editor's keys replace the files'.
    std::string requests = "\2" + word(6) + "logo:x" + "\2" + word(6) + "logo:y" + "\2" + word(6) + "text:x";
    ASSERT_TRUE(frames([&] { return editor.heard.size() >= requests.size(); }));
    EXPECT_EQ(editor.heard, requests);
    EXPECT_EQ(player.getTrack(0)->getValue(0), 0.0);

    std::string keys = setKey(0, 0, 1.5f, 1) + setKey(0, 8, 3.5f, 0) + setKey(1, 4, -2.0f, 2) + setKey(2, 1, 7.0f, 0) +
                       "\1" + word(2) + word(1);  // DELETE_KEY of text:x row 1
    editor.say(keys.substr(0, 20));  // the second key arrives in two pieces
    ASSERT_TRUE(frames([&] { return player.getTrack(0)->getKeys().size() == 1; }));
    editor.say(keys.substr(20) + "\3" + word(16) + "\4\1" + "\5");
    ASSERT_TRUE(frames([&] { return events == "seek 16;pause;"; }));
    EXPECT_EQ(player.getTrack(0)->getValue(4), 2.5);
    EXPECT_EQ(player.getTrack(1)->getValue(4), -2.0);
    EXPECT_TRUE(player.getTrack(2)->getKeys().empty());

    EXPECT_EQ(testsupport::readFile(dir.file("saved/demo_text-3Ax.track")), word(0));  // saved, names escaped

    // Playing, the demo reports each new row once; the editor's own seek is not echoed.
    editor.heard.clear();
    frames([] { return false; }, 16.5, true, 3);
    frames([] { return false; }, 17.2, true, 3);
    EXPECT_EQ(editor.heard, "\3" + word(17));
}

TEST_F(SyncEditorLink, GarbageHalfMessagesAndAVanishedEditorLeaveTheDemoRunning) {
    const std::pair<std::string, std::string> garbage[] = {
        {"\x09", "unknown command 9"}, {setKey(0, 1, 1.0f, 4), "key of unknown kind 4"},
        {setKey(7, 1, 1.0f, 0), "no track 7"}, {"\3" + word(0x80000000u), "row 2147483648 out of range"}};
    for (const auto& [bytes, why] : garbage) {
        greet();
        log.clear();
        editor.say(bytes);
        ASSERT_TRUE(frames([&] { return !client.isConnected(); }));
        EXPECT_EQ(log, "Sync editor connection closed : malformed message, " + why + "\n");
        editor.hangUp(), editor.heard.clear();
        unsigned int closed = wall;  // a second later, not before, the demo tries again
        ASSERT_TRUE(frames([&] { return editor.peer >= 0; }));
        EXPECT_GE(wall - closed, 1000u);
    }

    greet();
    editor.say(setKey(0, 1, 1.0f, 0).substr(0, 7));  // half a message, then the editor is gone
    editor.hangUp(), close(editor.listener), editor.listener = -1;
    ASSERT_TRUE(frames([&] { return !client.isConnected(); }));
    log.clear();
    frames([] { return false; }, 3.0, true);
    EXPECT_EQ(log, "Sync editor not found at 127.0.0.1:" + std::to_string(editor.port) +
                       ", playing the track files and retrying every second (Connection refused)\n");
}

}  // namespace
