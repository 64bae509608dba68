#pragma once
// The loading bar drawn while resources load; each tick redraws it and swaps.

class ProgressBar {
public:
    ProgressBar();
    explicit ProgressBar(int ticks);
    ProgressBar(float height, float width, float y, int ticks);
    virtual ~ProgressBar();

    virtual void draw();
    virtual void loadData();

    void setTicks(int ticks);
    void tick();

protected:
    float height;
    float width;
    float y;
    float progress;
    int ticks;
    int current;
};
