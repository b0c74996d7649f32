// The device: what a frame, a model and an indicator ask of whatever draws them.
//
// A device is a record with a table of operations, all of them mandatory; gl/GlDevice.h makes the one kind.
// It keeps what drawing needs from one frame to the next: programs, limits and the mesh that is bound. Every
// operation runs on the GL thread with the handle's context current.
#pragma once

#include <cstdint>
#include <memory>

#include "base/Mat4.h"
#include "base/Surface.h"
#include "device/FrameSlot.h"
#include "mesh/VertexCache.h"

namespace fovix {

struct Device;

/// Red, green, blue and alpha, 0 to 1.
struct Colour {
    float red, green, blue, alpha;
};

/// In the order of a handle's life and of a frame; every operation takes the device first.
struct DeviceOperations {
    /// Fovix_Prepare. Makes the programs and reads the limits of the current context; what was bound before
    /// no longer counts. Returns false after a line where there is no usable context, and then changes
    /// nothing.
    bool (*prepare)(Device& device) = nullptr;
    /// Fovix_Prepare. Makes a slot's textures, all black.
    void (*createTextures)(Device& device, FrameSlot& slot) = nullptr;
    /// Fovix_Init and every model with several screens. Directs drawing into a rectangle of the surface.
    void (*setViewport)(Device& device, const DeviceRect& rect) = nullptr;
    /// The frame's first step. Sets the viewport to the surface, fills it with a colour and resets its depth.
    void (*clear)(Device& device, const DeviceRect& surface, const Colour& colour) = nullptr;
    /// Under the lock. Binds the main mesh of the last useMesh again; returns false when it came from another
    /// source or belongs to an older context, so that it must be fetched.
    bool (*reuseMesh)(Device& device, std::uint64_t source) = nullptr;
    /// Under the lock. Binds a main mesh and shares it for as long as it is bound. Without a mesh the one
    /// that was bound stays bound, and is drawn only if it came from the same source.
    void (*useMesh)(Device& device, const VertexCachePtr& mesh, std::uint64_t source) = nullptr;
    /// Under the lock. Binds an overlay's mesh until the next main mesh.
    void (*useOverlayMesh)(Device& device, const VertexCachePtr& mesh) = nullptr;
    /// Under the lock. Uploads a slot's frame when it is new or force is set; returns the slot's
    /// textureUseful.
    int (*refreshTexture)(Device& device, FrameSlot& slot, bool force) = nullptr;
    /// Readies the device for meshes: frames are read as planes or as RGBA, scaled by textureScale.
    void (*startMeshes)(Device& device, bool usingYUV, double textureScale) = nullptr;
    /// Selects the slot whose frame meshes show.
    void (*showFrame)(Device& device, const FrameSlot& slot) = nullptr;
    /// The same for a cell of a grid; pixelFmt is the slot's format as read under the lock.
    void (*showCell)(Device& device, const FrameSlot& slot, int pixelFmt) = nullptr;
    /// Draws the bound mesh through a matrix; nothing for a matrix that is not finite. source and line appear
    /// in the lines of the GL check.
    void (*drawMesh)(Device& device, const Mat4& matrix, const char* source, int line) = nullptr;
    /// Draws a closed polyline over the surface: count vertices of x, y, z in normalised device coordinates.
    void (*drawLineLoop)(Device& device, const DeviceRect& surface, const float* vertices, int count,
                         const Colour& colour) = nullptr;
};

/// Base of every kind's own record.
struct DeviceParams {
    DeviceParams() = default;
    DeviceParams(const DeviceParams&) = delete;
    DeviceParams& operator=(const DeviceParams&) = delete;
    virtual ~DeviceParams() = default;
};

struct Device {
    DeviceOperations operations;
    std::unique_ptr<DeviceParams> params;
    bool isPrepared = false;  ///< prepare has succeeded once

    bool prepare() {
        const bool ready = operations.prepare(*this);
        isPrepared = isPrepared || ready;
        return ready;
    }
    void createTextures(FrameSlot& slot) { operations.createTextures(*this, slot); }
    void setViewport(const SurfaceRect& rect) { operations.setViewport(*this, scaledToPpi(rect)); }
    void setViewport(const DeviceRect& rect) { operations.setViewport(*this, rect); }
    void clear(const SurfaceRect& surface, const Colour& colour) {
        operations.clear(*this, scaledToPpi(surface), colour);
    }
    bool reuseMesh(std::uint64_t source) { return operations.reuseMesh(*this, source); }
    void useMesh(const VertexCachePtr& mesh, std::uint64_t source) {
        operations.useMesh(*this, mesh, source);
    }
    void useOverlayMesh(const VertexCachePtr& mesh) { operations.useOverlayMesh(*this, mesh); }
    int refreshTexture(FrameSlot& slot, bool force) { return operations.refreshTexture(*this, slot, force); }
    void startMeshes(bool usingYUV, double textureScale) {
        operations.startMeshes(*this, usingYUV, textureScale);
    }
    void showFrame(const FrameSlot& slot) { operations.showFrame(*this, slot); }
    void showCell(const FrameSlot& slot, int pixelFmt) { operations.showCell(*this, slot, pixelFmt); }
    void drawMesh(const Mat4& matrix, const char* source, int line = __builtin_LINE()) {
        operations.drawMesh(*this, matrix, source, line);
    }
    void drawLineLoop(const SurfaceRect& surface, const float* vertices, int count, const Colour& colour) {
        operations.drawLineLoop(*this, scaledToPpi(surface), vertices, count, colour);
    }
};

using DevicePtr = std::unique_ptr<Device>;

/// The kind's own record.
template <class Params>
Params& paramsOf(Device& device) {
    return static_cast<Params&>(*device.params);
}

}  // namespace fovix
