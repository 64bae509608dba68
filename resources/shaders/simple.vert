#version 110
// Passes the fixed-function colour and first texture coordinate on to the fragment stage.
varying vec2 texCoord;

void main() {
    texCoord = gl_MultiTexCoord0.xy;
    gl_FrontColor = gl_Color;
    gl_Position = ftransform();
}
