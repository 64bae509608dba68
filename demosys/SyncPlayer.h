#pragma once
// The tracks of a script's sync block and the timeline's sync lines. Before each frame is
// drawn, every bound effect that is running gets its method called with the tracks'
// values at the current row, as a timed call of that method would pass them.
#include <memory>
#include <string>
#include <vector>

#include "demosys/SyncBinding.h"

class Effect;
class ParameterGroup;
class SyncTrack;

class SyncPlayer {
public:
    SyncPlayer(double beatsPerMinute, int rowsPerBeat, std::string tracksPrefix);
    ~SyncPlayer();
    SyncPlayer(const SyncPlayer&) = delete;
    SyncPlayer& operator=(const SyncPlayer&) = delete;

    // From the script's sync block; null, with a message in the reader's style, when a
    // value is missing or unusable.
    static SyncPlayer* create(ParameterGroup* block, std::string& error);
    // Text of a track value as a script would write the argument (always with a point).
    static std::string valueText(double value);

    // Tracks are kept in the order in which the bindings first name them.
    void bind(const SyncBinding& binding, Effect* effect);
    bool loadTracks(std::string& error);
    bool saveTracks(std::string& error);

    double getRow(unsigned int milliseconds) const;
    unsigned int getMilliseconds(unsigned int row) const;
    // Once per frame, after the timeline's events and before drawing.
    void update(unsigned int milliseconds);

    size_t countTracks() const;
    SyncTrack* getTrack(size_t index);
    SyncTrack* findTrack(const std::string& name);
    const std::string& getPrefix() const;

private:
    struct Bound;

    double rowsPerSecond;
    std::string prefix;
    std::vector<std::unique_ptr<SyncTrack>> tracks;
    std::vector<std::unique_ptr<Bound>> bindings;
};
