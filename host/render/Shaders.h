// SPDX-License-Identifier: Apache-2.0
#pragma once

/// The renderer's programs, in GLSL 3.30. Colours are linear; the frame buffer turns them into sRGB.
namespace qel::host::shaders {

inline constexpr const char* backgroundVertex = R"(#version 330 core
out float height;
void main()
{
    // One triangle that covers the picture.
    vec2 corner = vec2((gl_VertexID << 1) & 2, gl_VertexID & 2);
    height = corner.y;
    gl_Position = vec4(corner * 2.0 - 1.0, 0.0, 1.0);
}
)";

inline constexpr const char* backgroundFragment = R"(#version 330 core
in float height;
out vec4 colour;
uniform vec3 lower;
uniform vec3 upper;
void main() { colour = vec4(mix(lower, upper, smoothstep(0.0, 1.0, height)), 1.0); }
)";

inline constexpr const char* meshVertex = R"(#version 330 core
layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;
uniform mat4 clipFromModel;
uniform mat4 viewFromModel;
out vec3 viewPosition;
out vec3 viewNormal;
void main()
{
    viewPosition = (viewFromModel * vec4(position, 1.0)).xyz;
    viewNormal = mat3(viewFromModel) * normal;
    gl_Position = clipFromModel * vec4(position, 1.0);
}
)";

// The lights hang on the camera, so that every view is lit: a key light from the upper left, a fill light from the
// right, sky and ground. A file may wind its triangles either way, so the side that is seen decides the normal's.
inline constexpr const char* meshFragment = R"(#version 330 core
in vec3 viewPosition;
in vec3 viewNormal;
out vec4 colour;
uniform vec3 surface;
uniform bool orthographic;
void main()
{
    vec3 toEye = orthographic ? vec3(0.0, 0.0, 1.0) : normalize(-viewPosition);
    vec3 face = cross(normalize(dFdx(viewPosition)), normalize(dFdy(viewPosition)));
    face *= dot(face, toEye) < 0.0 ? -1.0 : 1.0;
    // A vertex without a normal, or with opposite ones, takes the triangle's.
    vec3 normal = dot(viewNormal, viewNormal) > 0.0 ? normalize(viewNormal) : normalize(face);
    normal *= dot(normal, face) < 0.0 ? -1.0 : 1.0;

    const vec3 key = normalize(vec3(-0.50, 0.62, 0.60));
    const vec3 fill = normalize(vec3(0.85, 0.05, 0.35));
    float sky = 0.5 + 0.5 * normal.y;
    vec3 light = mix(vec3(0.05, 0.05, 0.06), vec3(0.20, 0.21, 0.23), sky);
    light += vec3(1.12, 1.08, 1.02) * max(dot(normal, key), 0.0);
    light += vec3(0.14, 0.15, 0.17) * max(dot(normal, fill), 0.0);

    float shine = pow(max(dot(normal, normalize(key + toEye)), 0.0), 36.0);
    float edge = pow(1.0 - max(dot(normal, toEye), 0.0), 4.0);
    colour = vec4(surface * light + vec3(0.20, 0.19, 0.18) * shine + surface * 0.25 * edge, 1.0);
}
)";

inline constexpr const char* lineVertex = R"(#version 330 core
layout(location = 0) in vec3 position;
uniform mat4 clipFromPoint;
void main() { gl_Position = clipFromPoint * vec4(position, 1.0); }
)";

// A line becomes a rectangle of so many pixels: core OpenGL draws no thick lines. What lies before the near plane is
// cut off first, since points behind the eye have no place in the picture.
inline constexpr const char* lineGeometry = R"(#version 330 core
layout(lines) in;
layout(triangle_strip, max_vertices = 4) out;
uniform vec2 picture;
uniform float width;
uniform float bias;
void main()
{
    vec4 a = gl_in[0].gl_Position;
    vec4 b = gl_in[1].gl_Position;
    float inA = a.z + a.w;
    float inB = b.z + b.w;
    if (inA < 0.0 && inB < 0.0) return;
    if (inA < 0.0) a = mix(a, b, inA / (inA - inB));
    if (inB < 0.0) b = mix(b, a, inB / (inB - inA));
    if (a.w <= 0.0 || b.w <= 0.0) return;

    vec2 along = (b.xy / b.w - a.xy / a.w) * picture * 0.5;
    float size = length(along);
    along = size > 1e-6 ? along / size : vec2(1.0, 0.0);
    vec2 across = vec2(-along.y, along.x) * width / picture;
    along *= width / picture;
    a.z -= bias * a.w;
    b.z -= bias * b.w;
    gl_Position = a + vec4((-along + across) * a.w, 0.0, 0.0); EmitVertex();
    gl_Position = a + vec4((-along - across) * a.w, 0.0, 0.0); EmitVertex();
    gl_Position = b + vec4((along + across) * b.w, 0.0, 0.0); EmitVertex();
    gl_Position = b + vec4((along - across) * b.w, 0.0, 0.0); EmitVertex();
    EndPrimitive();
}
)";

inline constexpr const char* lineFragment = R"(#version 330 core
out vec4 colour;
uniform vec4 line;
void main() { colour = line; }
)";

} // namespace qel::host::shaders
