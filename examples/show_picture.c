/* Shows a fisheye image from a BMP file, or a test image: drag to look around, turn the wheel to zoom. */
#include <Fovix.h>
#include <SDL.h>

static SDL_Surface* drawTestImage(void) { /* rings in eight colours, on black */
    SDL_Surface* image = SDL_CreateRGBSurfaceWithFormat(0, 1000, 1000, 32, SDL_PIXELFORMAT_RGBA32);
    for (int i = 0; image && i < 1000 * 1000; ++i) {
        const int x = i % 1000 - 500, y = i / 1000 - 500, ring = (x * x + y * y) / 25000;
        const Uint32 colour = (x > 0 ? 0x90u : 0) + (y > 0 ? 0x9000u : 0) + (x * x > y * y ? 0x900000u : 0);
        ((Uint32*)image->pixels)[i] = ring >= 10 ? 0 : colour + (ring & 1 ? 0x606060u : 0x303030u);
    }
    return image;
}

static void steer(VRHANDLE handle, const SDL_Event* e) { /* motion.x is where button.x is */
    const float x = (float)e->button.x, y = (float)e->button.y;
    if (e->type == SDL_MOUSEBUTTONDOWN || e->type == SDL_MOUSEWHEEL) Fovix_OnTouchDown(handle, x, y);
    if (e->type == SDL_MOUSEMOTION && e->motion.state) Fovix_OnTouchMove(handle, x, y);
    if (e->type == SDL_MOUSEBUTTONUP) Fovix_OnTouchUp(handle, x, y), Fovix_AutoAdjust(handle);
    if (e->type == SDL_MOUSEWHEEL) Fovix_OnTouchPinchScale(handle, e->wheel.y > 0 ? 1.1f : 0.9f);
}

int main(int argc, char** argv) {
    SDL_Window* window = SDL_CreateWindow("fovix", 0, 0, 1280, 720, SDL_WINDOW_OPENGL);
    SDL_Surface* read = argc > 1 ? SDL_LoadBMP(argv[1]) : drawTestImage();
    SDL_Surface* frame = read ? SDL_ConvertSurfaceFormat(read, SDL_PIXELFORMAT_RGBA32, 0) : NULL;
    VRHANDLE handle = NULL;
    Fovix_Create(&handle);
    if (!window || !SDL_GL_CreateContext(window) || !frame || !handle)
        return SDL_Log("%s", SDL_GetError()), 1;
    Fovix_Prepare(handle);
    Fovix_Init(handle, 1280, 720);
    Fovix_SetType(handle, FOVIX_TYPE_360VR); /* then Fovix_SetFecParams(), unless the circle is centred */
    Fovix_SetRGBTexture(handle, frame->pixels, 4 * frame->w * frame->h, frame->w, frame->h);
    for (SDL_Event event = {0}; event.type != SDL_QUIT; SDL_GL_SwapWindow(window)) {
        while (event.type != SDL_QUIT && SDL_PollEvent(&event)) steer(handle, &event);
        Fovix_Drawself(handle);
    }
    return Fovix_Release(handle), SDL_Quit(), 0;
}
