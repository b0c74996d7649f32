#include "gl/VertexBinding.h"

#include <GL/glew.h>

#include <algorithm>

#include "gl/GlCheck.h"

namespace fovix {

namespace {

constexpr char kSource[] = "Multi/FovixPrograms";

}  // namespace

void VertexBinding::forget(const VertexAttributes& attributes) {
    _attributes = attributes;
    _bound = nullptr;
    _drawable = 0;
}

bool VertexBinding::reuse(std::uint64_t source) {
    if (!_bound || _source != source) return false;
    point(_main);
    return true;
}

void VertexBinding::use(const VertexCachePtr& mesh, std::uint64_t source) {
    if (mesh) {
        point(mesh);
        _main = mesh;
        _source = source;
    } else if (_bound) {
        point(_bound);
        _drawable = _source == source ? std::min(_main->vertexCount(), _bound->vertexCount()) : 0;
    }
}

void VertexBinding::useOverlay(const VertexCachePtr& mesh) {
    point(mesh);
}

/// The host's buffers and vertex array object would turn addresses of the library's memory into offsets.
void VertexBinding::unbindHostArrays() const {
    if (_attributes.hasVertexArrayObjects) glBindVertexArray(0);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void VertexBinding::point(const VertexCachePtr& mesh) {
    unbindHostArrays();
    glVertexAttribPointer(_attributes.position, 3, GL_FLOAT, GL_FALSE, 3 * sizeof(float),
                          mesh->positions.data());
    glCheck(kSource);
    glEnableVertexAttribArray(_attributes.position);
    glCheck(kSource);
    glVertexAttribPointer(_attributes.textureCoords, 2, GL_FLOAT, GL_FALSE, 2 * sizeof(float),
                          mesh->textureCoords.data());
    glCheck(kSource);
    glEnableVertexAttribArray(_attributes.textureCoords);
    glCheck(kSource);
    _bound = mesh;
    _drawable = mesh->vertexCount();
}

void VertexBinding::pointAt(unsigned attribute, const float* vertices) {
    unbindHostArrays();
    // Only the loop's array may be enabled, since the others can be shorter than the loop.
    glDisableVertexAttribArray(_attributes.textureCoords);
    glEnableVertexAttribArray(attribute);
    glVertexAttribPointer(attribute, 3, GL_FLOAT, GL_FALSE, 0, vertices);
}

/// The other vertices are the caller's: no attribute keeps pointing at them.
void VertexBinding::restore(unsigned attribute) {
    if (_bound) return point(_bound);
    glDisableVertexAttribArray(attribute);
}

}  // namespace fovix
