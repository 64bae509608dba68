#pragma once
// Size of the output and the perspective projection that every frame starts from.

class ScreenMetrics {
public:
    ScreenMetrics();

    int getWidth();
    int getHeight();
    void setResolution(int width, int height);
    float getNear();
    float getFar();
    void setNear(float value);
    void setFar(float value);
    bool isFullscreen();
    void setFullscreen(bool value);
    bool getFullScreenOverride();
    ScreenMetrics* setFullscreenOverride(bool value);

    void initView();
    void setView();
    void resize(int width, int height);

private:
    int height;
    int width;
    int viewLeft;
    int viewRight;
    int viewBottom;
    int viewTop;
    bool fullscreen;
    bool fullscreenOverride;
    float frustumHalfWidth;
    float frustumHalfHeight;
    float nearPlane;
    float farPlane;
};
