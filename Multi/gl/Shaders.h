// The two shader programs, in GLSL 1.20, which every context that the library supports compiles.
#pragma once

namespace fovix {

/// Textured program: places the mesh and marks what lies behind the camera.
inline constexpr char kDewarperVertexShader[] = R"(#version 120
attribute vec3 a_position;
attribute vec2 a_textureCoords;
uniform mat4 u_mvpMatrix;
uniform float u_verticalOffset;
varying vec2 v_textureCoords;
varying float v_valid;
void main()
{
    vec4 position = u_mvpMatrix * vec4(a_position, 1.0);
    position.y += u_verticalOffset;
    v_valid = position.z < 0.0 ? 0.0 : 1.0;
    v_textureCoords = a_textureCoords;
    gl_Position = position;
}
)";

/// Samples the RGBA texture, or the three planes of a YUV frame (BT.601, limited range). Textures clamp to
/// the edge, so everything outside the frame is painted black here.
inline constexpr char kDewarperFragmentShader[] = R"(#version 120
uniform sampler2D u_dewarperTexture;
uniform sampler2D u_dewarperYTexture;
uniform sampler2D u_dewarperUTexture;
uniform sampler2D u_dewarperVTexture;
uniform bool u_usingYUV;
uniform float u_yTextureScaleAdjustment;
uniform float u_uTextureScaleAdjustment;
uniform float u_vTextureScaleAdjustment;
uniform float u_aspectRatio;
uniform float u_textureScale;
varying vec2 v_textureCoords;
varying float v_valid;

vec2 planeCoords(float adjustment, vec2 scale)
{
    float centre = 0.5 * adjustment;
    return (vec2(v_textureCoords.x * adjustment, v_textureCoords.y) - centre) / scale + centre;
}

void main()
{
    if (v_valid == 0.0) discard;
    vec2 scale = vec2(u_textureScale * u_aspectRatio, u_textureScale);
    vec4 colour = vec4(0.0, 0.0, 0.0, 1.0);
    if (u_usingYUV) {
        vec2 s = planeCoords(u_yTextureScaleAdjustment, scale);
        if (0.0 < s.x && s.x < 1.0 && 0.0 < s.y && s.y < u_yTextureScaleAdjustment) {
            float y = texture2D(u_dewarperYTexture, s).r;
            float u = texture2D(u_dewarperUTexture, planeCoords(u_uTextureScaleAdjustment, scale)).r;
            float v = texture2D(u_dewarperVTexture, planeCoords(u_vTextureScaleAdjustment, scale)).r;
            y = 1.1643 * (y - 0.0625);
            u = u - 0.5;
            v = v - 0.5;
            colour = vec4(y + 1.5958 * v, y - 0.39173 * u - 0.81290 * v, y + 2.017 * u, 1.0);
        }
    } else {
        vec2 s = (v_textureCoords - 0.5) / scale + 0.5;
        if (0.0 < s.x && s.x < 1.0 && 0.0 < s.y && s.y < 1.0) colour = texture2D(u_dewarperTexture, s);
    }
    gl_FragColor = colour;
}
)";

/// Flat-colour program: clip-space positions, one colour.
inline constexpr char kLineVertexShader[] = R"(#version 120
attribute vec4 vPosition;
void main()
{
    gl_Position = vPosition;
}
)";

inline constexpr char kLineFragmentShader[] = R"(#version 120
uniform vec4 vColor;
void main()
{
    gl_FragColor = vColor;
}
)";

}  // namespace fovix
