// SPDX-License-Identifier: Apache-2.0
#include "host/render/ShaderProgram.h"

#include <array>
#include <string>

#include "host/render/OffscreenContext.h"

namespace qel::host {
namespace {

void attach(GLuint program, GLenum kind, const char* source) {
    if (source == nullptr) {
        return;
    }
    const GLuint shader = glCreateShader(kind);
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    GLint compiled = GL_FALSE;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
    if (compiled != GL_TRUE) {
        std::array<char, 1024> words{};
        glGetShaderInfoLog(shader, static_cast<GLsizei>(words.size()), nullptr, words.data());
        throw GraphicsError(std::string("the OpenGL driver refuses a shader: ") + words.data());
    }
    glAttachShader(program, shader);
    glDeleteShader(shader);
}

} // namespace

ShaderProgram::ShaderProgram(const char* vertex, const char* geometry, const char* fragment)
    : mName(glCreateProgram()) {
    attach(mName, GL_VERTEX_SHADER, vertex);
    attach(mName, GL_GEOMETRY_SHADER, geometry);
    attach(mName, GL_FRAGMENT_SHADER, fragment);
    glLinkProgram(mName);
    GLint linked = GL_FALSE;
    glGetProgramiv(mName, GL_LINK_STATUS, &linked);
    if (linked != GL_TRUE) {
        std::array<char, 1024> words{};
        glGetProgramInfoLog(mName, static_cast<GLsizei>(words.size()), nullptr, words.data());
        throw GraphicsError(std::string("the OpenGL driver refuses a program: ") + words.data());
    }
}

} // namespace qel::host
