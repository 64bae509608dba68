#pragma once
// The link to a running sync editor over TCP. It connects without waiting, greets, asks
// for every bound track, then applies the editor's keys to the tracks and passes its seek
// and pause commands on; while the demo plays it reports the row whenever the row changes.
// An editor that is not there, goes away or talks nonsense costs a log line and a new
// attempt a second later: the demo keeps playing on what the tracks hold.
#include <functional>
#include <string>

#include <netinet/in.h>

#include "demosys/SyncProtocol.h"

class SyncPlayer;

class SyncEditorClient {
public:
    static const unsigned short defaultPort = 1338;

    // "host:port", "host" or "" (127.0.0.1:1338); false when the port is no port number.
    static bool parseAddress(const std::string& text, std::string& host, unsigned short& port);

    SyncEditorClient(SyncPlayer& player, const std::string& host, unsigned short port);
    ~SyncEditorClient();
    SyncEditorClient(const SyncEditorClient&) = delete;
    SyncEditorClient& operator=(const SyncEditorClient&) = delete;

    // The editor moved the cursor to a row, or paused (true) or started playing (false).
    std::function<void(unsigned int row)> onSeek;
    std::function<void(bool paused)> onPause;

    // Once per frame. wallMs is a clock that runs while the demo is paused (it paces the
    // reconnect attempts); row is the demo's current row.
    void update(unsigned int wallMs, double row, bool playing);
    bool isConnected() const;
    const std::string& getAddress() const;

private:
    enum State { IDLE, CONNECTING, GREETING, CONNECTED };

    void connect(unsigned int wallMs);
    void close(const std::string& why);
    bool finishConnect();
    bool flush();
    bool receive();
    bool readGreeting();
    bool applyMessages();
    bool apply(const SyncProtocol::Message& message);

    SyncPlayer& player;
    std::string address;
    sockaddr_in editor;
    bool resolved = false;
    int socket = -1;
    State state = IDLE;
    bool attempted = false;
    bool reportedAbsent = false;
    unsigned int attemptAt = 0;
    unsigned int now = 0;
    long long lastRow = -1;
    std::string incoming;
    std::string outgoing;
};
