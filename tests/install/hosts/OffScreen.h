/* What both hosts need: a GL context without a window, and a look at the middle of what was drawn. */
#ifndef OFF_SCREEN_H
#define OFF_SCREEN_H

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>
#include <stdio.h>
#include <stdlib.h>

enum { surfaceSize = 64 };

/* Makes a context current that draws on surfaceSize times surfaceSize pixels; 0 where EGL cannot. */
static int openOffScreen(void) {
    const EGLint wanted[] = {EGL_SURFACE_TYPE,
                             EGL_PBUFFER_BIT,
                             EGL_RENDERABLE_TYPE,
                             EGL_OPENGL_BIT,
                             EGL_RED_SIZE,
                             8,
                             EGL_DEPTH_SIZE,
                             24,
                             EGL_NONE};
    const EGLint size[] = {EGL_WIDTH, surfaceSize, EGL_HEIGHT, surfaceSize, EGL_NONE};
    EGLDisplay display = eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, NULL);
    EGLConfig config;
    EGLint found = 0;
    if (!eglInitialize(display, NULL, NULL) || !eglBindAPI(EGL_OPENGL_API) ||
        !eglChooseConfig(display, wanted, &config, 1, &found) || found != 1)
        return 0;
    EGLSurface surface = eglCreatePbufferSurface(display, config, size);
    EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, NULL);
    return eglMakeCurrent(display, surface, surface, context);
}

/* The exit status of a host: 0 when the middle pixel has the colour, give or take a rounding. */
static int expectColour(int red, int green, int blue) {
    unsigned char pixel[4] = {0, 0, 0, 0};
    glReadPixels(surfaceSize / 2, surfaceSize / 2, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    if (abs(pixel[0] - red) <= 1 && abs(pixel[1] - green) <= 1 && abs(pixel[2] - blue) <= 1) return 0;
    printf("expected %d %d %d, drawn %d %d %d\n", red, green, blue, pixel[0], pixel[1], pixel[2]);
    return 1;
}

#endif
