// The two shader programs: compiled, linked and looked up once per GL context. GL thread only.
#pragma once

namespace fovix {

/// Both programs and the locations in them.
struct Programs {
    unsigned dewarperProgram = 0;  ///< textured program
    int positionAttrib = 0, textureCoordsAttrib = 0;
    int mvpMatrixUniform = 0, verticalOffsetUniform = 0;
    int usingYUVUniform = 0;
    int yTextureScaleAdjustmentUniform = 0, uTextureScaleAdjustmentUniform = 0,
        vTextureScaleAdjustmentUniform = 0;
    int dewarperTextureUniform = 0, dewarperYTextureUniform = 0;
    int dewarperUTextureUniform = 0, dewarperVTextureUniform = 0;
    int aspectRatioUniform = 0, textureScaleUniform = 0;
    unsigned lineProgram = 0;  ///< flat-colour program
    int linePositionAttrib = 0, lineColorUniform = 0;
};

/// Loads the GL entry points; returns false, after a line, when no usable GL context is current.
bool loadOpenGL();

/// A compiled shader, or 0 after printing the compiler's log.
unsigned loadShader(unsigned type, const char* source);

/// Builds both programs, looks up their locations and sets the samplers.
Programs createPrograms();

/// Points the samplers at texture units 0 to 3; the textured program must be in use.
void setSamplers(const Programs& programs);

}  // namespace fovix
