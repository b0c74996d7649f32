/* Shows a fisheye picture, a BMP file or one of its own: a left drag looks round, the wheel zooms. */
#include <Fovix.h>
#include <SDL.h>

static SDL_Surface* drawPicture(void) { /* rings and eight colours in a circle on black */
    SDL_Surface* picture = SDL_CreateRGBSurfaceWithFormat(0, 1000, 1000, 32, SDL_PIXELFORMAT_RGBA32);
    for (int i = 0; picture && i < 1000 * 1000; ++i) {
        const int x = i % 1000 - 500, y = i / 1000 - 500, ring = (x * x + y * y) / 25000;
        const Uint32 colour = (x > 0 ? 0x90u : 0) + (y > 0 ? 0x9000u : 0) + (x * x > y * y ? 0x900000u : 0);
        ((Uint32*)picture->pixels)[i] = ring >= 10 ? 0 : colour + (ring & 1 ? 0x606060u : 0x303030u);
    }
    return picture;
}

static void steer(VRHANDLE view, const SDL_Event* e) { /* a motion has its place where a button has it */
    const float x = (float)e->button.x, y = (float)e->button.y;
    if (e->type == SDL_MOUSEBUTTONDOWN || e->type == SDL_MOUSEWHEEL) Fovix_OnTouchDown(view, x, y);
    if (e->type == SDL_MOUSEMOTION && e->motion.state) Fovix_OnTouchMove(view, x, y);
    if (e->type == SDL_MOUSEBUTTONUP) Fovix_OnTouchUp(view, x, y), Fovix_AutoAdjust(view);
    if (e->type == SDL_MOUSEWHEEL) Fovix_OnTouchPinchScale(view, e->wheel.y > 0 ? 1.1f : 0.9f);
}

int main(int argc, char** argv) {
    SDL_Window* window = SDL_CreateWindow("fovix", 0, 0, 1280, 720, SDL_WINDOW_OPENGL);
    SDL_Surface* read = argc > 1 ? SDL_LoadBMP(argv[1]) : drawPicture();
    SDL_Surface* picture = read ? SDL_ConvertSurfaceFormat(read, SDL_PIXELFORMAT_RGBA32, 0) : NULL;
    VRHANDLE view = NULL;
    Fovix_Create(&view);
    if (!window || !SDL_GL_CreateContext(window) || !picture || !view)
        return SDL_Log("%s", SDL_GetError()), 1;
    Fovix_Prepare(view);
    Fovix_Init(view, 1280, 720);
    Fovix_SetType(view, FOVIX_TYPE_360VR); /* then Fovix_SetFecParams(), unless the circle is in the middle */
    Fovix_SetRGBTexture(view, picture->pixels, 4 * picture->w * picture->h, picture->w, picture->h);
    for (SDL_Event event = {0}; event.type != SDL_QUIT; SDL_GL_SwapWindow(window)) {
        while (event.type != SDL_QUIT && SDL_PollEvent(&event)) steer(view, &event);
        Fovix_Drawself(view);
    }
    return Fovix_Release(view), SDL_Quit(), 0;
}
