#version 110
// The texture on unit 0 tinted by the vertex colour.
uniform sampler2D texture0;
varying vec2 texCoord;

void main() {
    gl_FragColor = texture2D(texture0, texCoord) * gl_Color;
}
