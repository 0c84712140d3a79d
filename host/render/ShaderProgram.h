// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epoxy/gl.h>

namespace qel::host {

/// A linked program of shaders. It lives as long as the context it was made in.
class ShaderProgram {
public:
    /// The geometry shader may be null. Throws GraphicsError with the driver's words.
    ShaderProgram(const char* vertex, const char* geometry, const char* fragment);

    void use() const { glUseProgram(mName); }
    [[nodiscard]] GLint uniform(const char* name) const { return glGetUniformLocation(mName, name); }

private:
    GLuint mName;
};

} // namespace qel::host
