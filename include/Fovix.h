/// @file Fovix.h
/// @brief The public interface of libfovix: dewarped, steerable views of fisheye images, rendered with
/// OpenGL.
///
/// The host decodes frames, submits them, reports input and owns the surface; the library draws. It creates
/// no threads and no GL context, reads no files or environment variables and decodes nothing. It does not
/// present (the host swaps buffers) and has no clock: animations advance by one step per rendered frame.
///
/// @section walk From set-up to shut-down
/// @code{.c}
/// VRHANDLE handle = NULL;
/// Fovix_Create(&handle);                                 /* any thread; starts with the 180-degree type */
/// if (handle == NULL) return 1;                          /* out of memory */
/// /* make the GL context current */
/// Fovix_Prepare(handle);                                 /* once per GL context */
/// Fovix_Init(handle, 1280, 720);                         /* and again after every resize */
/// Fovix_SetType(handle, FOVIX_TYPE_360VR);
/// Fovix_SetFecParams(handle, 960, 540, 540, 1920, 1080); /* after every change of type */
/// while (running) {
///     if (decoded(&frame)) {                             /* usually on the decoder's own thread */
///         Fovix_SetYUV420PTexture(handle, frame.bytes, frame.size, frame.width, frame.height);
///     }
///     if (finger.pressed) Fovix_OnTouchDown(handle, finger.x, finger.y);
///     if (finger.moved) Fovix_OnTouchMove(handle, finger.x, finger.y);
///     if (finger.lifted) {
///         Fovix_OnTouchUp(handle, finger.x, finger.y);
///         Fovix_AutoAdjust(handle);
///     }
///     Fovix_Drawself(handle);                            /* the GL context is current */
///     present();
/// }
/// Fovix_Release(handle);
/// @endcode
///
/// @section terms Terms
/// - A *frame* is one decoded picture that the host submits. A *rendered frame* is the result of one call of
///   Fovix_Drawself().
/// - A *view* is where a virtual camera looks: pan, tilt, roll and zoom. A *screen* is a part of the surface
///   with its own view; the *shape* selects the layout of the screens.
/// - The *lens circle* is the circular image of the lens within a frame.
/// - "Type 1" is the display type with the value 1 in FovixDisplayType; mounts, shapes and draw modes are
///   numbered in the same way.
///
/// @section gl OpenGL
/// The library needs a compatibility profile, version 2.1 or later. The context must be current on the
/// thread that calls Fovix_Prepare(), Fovix_Init(), Fovix_Drawself() or checkOpenGLError(): the *GL thread*.
/// No other function makes GL calls.
/// - Fovix_Drawself() draws into the framebuffer that the host has bound. It sets the viewport, the clear
///   colour, depth test (on), blending (on, GL_ONE and GL_ZERO), the program, the active texture and the 2D
///   textures of units 0 to 3. It sets unpack alignment 1 and turns off row length, skips and byte swapping;
///   it unbinds GL_PIXEL_UNPACK_BUFFER and GL_ARRAY_BUFFER and binds vertex array object 0. It sets its
///   vertex attributes and, for outlines and indicators, the line width.
/// - State left to the host and honoured: scissor, stencil, culling, colour mask, sampler objects on units 0
///   to 3, pixel transfer. Pending GL errors, including the host's own, are read and printed.
/// - Nothing is restored, and the next rendered frame sets everything again. Two attribute arrays stay
///   enabled and point into the library's memory, which may be freed after the call: a host with its own
///   draw calls must disable or re-specify them first.
/// - Fovix_Prepare() sets blending, depth test, program, textures and, if a frame size is known, the
///   attributes in the same way. Fovix_Init() sets the viewport.
/// - The library never deletes GL objects; destroying the context frees them. On a new context, call
///   Fovix_Prepare() and Fovix_Init(), then submit the frames again.
///
/// @section ownership Ownership
/// Frames are copied before the call returns; the library keeps no host pointers. The host frees nothing
/// that the library returns. A handle is valid from Fovix_Create() or Fovix_CreateNoTouchEvent() to
/// Fovix_Release(). Stale and foreign handles are rejected without being dereferenced.
///
/// @section threads Threads
/// Unless an entry says *GL thread*, a function may be called from any thread and makes no GL calls.
/// Typically a decoder thread submits frames, an input thread reports gestures and the GL thread draws. The
/// type may change, and the handle may be released, while other threads are inside a call.
///
/// One recursive lock per process guards short sections (the copy of a frame, a change of type, the texture
/// uploads); it is not held while a model draws. Getters return the last value set, which may not have been
/// drawn yet.
///
/// @section units Coordinates and units
/// - Touches: surface pixels from the top left, relative to the size passed to Fovix_Init().
/// - Frames: rows from top to bottom. Screens, cells and lenses count from 0.
/// - Angles: degrees. Speeds: per rendered frame.
/// - Zoom of type 0: field of view in degrees, smaller is closer. Zoom of other types: factor, 1.0 is normal,
///   larger is closer.
///
/// @section diagnostics Diagnostics
/// There are no error codes: the library prints plain lines on standard output.
/// - A null handle prints `Error VRHANDLE, is NULL\n` and an invalid one `Error VRHANDLE\n`. The call does
///   nothing else; getters return the failure value named in their entry and write nothing.
/// - Functions that take float or double reject non-finite values (NaN, infinity) with an error line and
///   change nothing.
/// - Calls that do not apply to the current display type are ignored silently unless an entry says
///   otherwise.
#ifndef FOVIX_H
#define FOVIX_H

/// @name Version of this header
/// @{
#define FOVIX_VERSION_MAJOR 1  ///< increases when hosts must change
#define FOVIX_VERSION_MINOR 2  ///< increases with new functions
#define FOVIX_VERSION_PATCH 1  ///< increases with fixes
/// @}

/// Marks the exported functions; FOVIX_BUILDING is defined only while the library itself is built.
#if defined(_WIN32) && defined(FOVIX_BUILDING)
#define FOVIX_API __declspec(dllexport)
#elif defined(_WIN32)
#define FOVIX_API __declspec(dllimport)
#elif defined(__GNUC__) || defined(__clang__)
#define FOVIX_API __attribute__((visibility("default")))
#else
#define FOVIX_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// An instance of the library's state: one camera's display, its frames and its views. Opaque.
typedef struct FovixContext* VRHANDLE;

/// Display types, for Fovix_SetType(). Any other number shows the plain image, like FOVIX_TYPE_ORIGINAL.
enum FovixDisplayType {
    FOVIX_TYPE_360VR = 0,         ///< 360-degree panorama, one to six pan-tilt-zoom screens
    FOVIX_TYPE_180VR = 1,         ///< 180-degree view; the type of a new handle
    FOVIX_TYPE_ORIGINAL = 2,      ///< the plain fisheye image, zoomable
    FOVIX_TYPE_KORVEL = 3,        ///< the straightened image of the Korvel lens
    FOVIX_TYPE_MULTI_IMAGE = 20,  ///< a grid of up to 36 frames
    FOVIX_TYPE_MULTI_LENS = 21,   ///< one of up to 36 frames, one per lens
    FOVIX_TYPE_SINGLE_PIP = 22,   ///< zoomable image; on a square surface with an overview inset
    FOVIX_TYPE_TWO_LENSES = 24    ///< two lenses in one frame, one above the other
};

/// Pixel formats. W and H are the size of the frame, divisions are integer divisions, rows have no padding.
enum FovixPixelFormat {
    FOVIX_FORMAT_RGBA = 1,     ///< R, G, B, A bytes: 4 W H
    FOVIX_FORMAT_YUV420P = 3,  ///< planes Y (W H), U at W H, V at W H + W H / 4
    FOVIX_FORMAT_NV12 = 9,     ///< plane Y, then W H / 4 chroma pairs, U first
    FOVIX_FORMAT_NV21 = 10     ///< plane Y, then W H / 4 chroma pairs, V first
};

/// How the camera of type 0 is mounted, for Fovix_SetCameraMount().
enum FovixCameraMount {
    FOVIX_MOUNT_CEILING = 0,        ///< looks down; all shapes
    FOVIX_MOUNT_WALL = 1,           ///< looks ahead; shapes 0, 2, 5, 6 and 8
    FOVIX_MOUNT_WALL_INVERTED = 2,  ///< looks ahead, upside down; shape 0
    FOVIX_MOUNT_FLOOR = 3           ///< looks up; shape 0
};

/// Layouts, for Fovix_SetShape(). Type 1 has the shapes 0, 3, 5, 7 and 10.
enum FovixShape {
    FOVIX_SHAPE_SINGLE = 0,           ///< one screen on the hemisphere; type 1: the lens disc
    FOVIX_SHAPE_DOME = 1,             ///< the hemisphere as a dome
    FOVIX_SHAPE_BOWL = 2,             ///< the hemisphere as a bowl
    FOVIX_SHAPE_CYLINDER = 3,         ///< a cylinder seen from outside; type 1: the full cylinder
    FOVIX_SHAPE_CYLINDER_INSIDE = 4,  ///< a cylinder seen from inside
    FOVIX_SHAPE_STRIP = 5,            ///< the panorama as one strip; type 1: the stretched image
    FOVIX_SHAPE_TWO_STRIPS = 6,       ///< two strips, half a turn apart
    FOVIX_SHAPE_FOUR_SCREENS = 7,     ///< two by two screens
    FOVIX_SHAPE_OVERVIEW_FIVE = 8,    ///< an overview (screen 0) and five screens around it
    FOVIX_SHAPE_TWO_AND_STRIP = 9,    ///< two screens above a strip
    FOVIX_SHAPE_LARGE_AND_TWO = 10    ///< type 1 only: one large screen above two small ones
};

/// Draw modes of type 1, for Fovix_SetDrawMode().
enum Fovix180DrawMode {
    FOVIX_180_DISC = 0,      ///< the lens disc
    FOVIX_180_STRETCH = 1,   ///< stretched flat
    FOVIX_180_CYLINDER = 2,  ///< around a full cylinder
    FOVIX_180_CURVED = 3     ///< on a shallow curved screen
};

/// Draw modes of type 24, for Fovix_SetTwoLensesDrawMode().
enum FovixTwoLensesDrawMode {
    FOVIX_TWO_LENSES_BY_ZOOM = 0,  ///< the upper half; at the zoom threshold and above, the lower one
    FOVIX_TWO_LENSES_BOTH = 1,     ///< both halves, or the one chosen with Fovix_SetTwoLensesScreen()
    FOVIX_TWO_LENSES_UPPER = 2,    ///< the upper half, fixed
    FOVIX_TWO_LENSES_LOWER = 3     ///< the lower half, fixed
};

/// Screens of type 24, for Fovix_SetTwoLensesScreen().
enum FovixTwoLensesScreen {
    FOVIX_TWO_LENSES_SCREEN_BOTH = 0,    ///< both; one above the other unless the surface is wider than tall
    FOVIX_TWO_LENSES_SCREEN_FIRST = 1,   ///< the first lens, the upper half
    FOVIX_TWO_LENSES_SCREEN_SECOND = 2,  ///< the second lens, the lower half
    FOVIX_TWO_LENSES_SCREEN_NONE = 3     ///< only returned: the type or draw mode has no such choice
};

/// @name Lifecycle
/// @{

/// Returns the version of the library.
/// @return the constant string `1.2.1_dbg`
FOVIX_API const char* Fovix_Version(void);

/// Creates a handle with touch controllers. It starts with type 1. Prints `Fovix Version : %s\n`.
/// @param[out] out  receives the handle, or null if memory runs out
/// @errors With a null out, prints the version and creates nothing.
FOVIX_API void Fovix_Create(VRHANDLE* out);

/// Creates a handle without touch controllers: gestures, sensors and cruise do nothing, the host sets the
/// views. Prints `Fovix Version : %s\n`.
/// @param[out] out  receives the handle, or null if memory runs out
/// @errors With a null out, prints the version and creates nothing.
FOVIX_API void Fovix_CreateNoTouchEvent(VRHANDLE* out);

/// Builds the shader programs and textures in the current GL context, forgets all frames and resets the
/// view. Call it before the other GL functions, and again on every new context.
/// @param handle  a live handle
/// @errors Without a current context, prints `Fovix Error : no OpenGL 2.0 context is current\n` and builds
///   nothing.
/// @glthread
FOVIX_API void Fovix_Prepare(VRHANDLE handle);

/// Sets the size of the surface and the viewport. Call it after Fovix_Prepare() and after every resize.
/// @param handle  a live handle
/// @param width,height  surface size in pixels; values below 1 render nothing useful
/// @glthread
FOVIX_API void Fovix_Init(VRHANDLE handle, int width, int height);

/// Reads the size last passed to Fovix_Init().
/// @param handle  a live handle
/// @param[out] width,height  receive pixels; may be null
FOVIX_API void Fovix_getViewSize(VRHANDLE handle, int* width, int* height);

/// Scales every viewport of every handle, for surfaces with a higher pixel density. Takes effect at the next
/// Fovix_Init() or rendered frame.
/// @param zoom  factor above 0, 1 at start; other values are ignored
FOVIX_API void Fovix_SetPPIZoom(int zoom);

/// Forgets the frame size: only the background is drawn until the next frame is submitted.
/// @param handle  a live handle
FOVIX_API void Fovix_CleanUp(VRHANDLE handle);

/// Destroys the handle. Its GL objects remain until their context is destroyed. Safe while other threads are
/// inside a call on this handle.
/// @param handle  a live handle; releasing it twice prints an error line
FOVIX_API void Fovix_Release(VRHANDLE handle);

/// @}

/// @name Display type and parameters
/// @{

/// Changes the display type: new model, new controllers, default view, no lens parameters. Setting the
/// current type again changes nothing.
/// @param handle  a live handle
/// @param type  FovixDisplayType; any other number shows the plain image
/// @errors For an invalid handle, also prints `Fovix_SetType() Error! handle is NULL!\n`. Type 3 is ignored
///   if type 0 or 1 is shown and at least two changes of type have been accepted since the handle was
///   created.
FOVIX_API void Fovix_SetType(VRHANDLE handle, int type);

/// Returns the display type.
/// @param handle  a live handle
/// @return the type as it was set; 1 for an invalid handle
FOVIX_API int Fovix_GetType(VRHANDLE handle);

/// Selects the projection of type 1, or whether type 22 shows its inset.
/// @param handle  a live handle
/// @param mode  type 1: Fovix180DrawMode; type 22: 0 hides the inset, any other value shows it (3 at start)
/// @errors Type 1: if the mode has any other value, every rendered frame prints why there is no mesh.
FOVIX_API void Fovix_SetDrawMode(VRHANDLE handle, int mode);

/// Shows a blend from one projection of type 1 to another; the draw mode stays the same. Fovix_SetShape()
/// does this by itself.
/// @param handle  a live handle
/// @param fromMode,toMode  Fovix180DrawMode
/// @param step  step to start at, usually 1
/// @param frameCount  length in rendered frames; below 1 there is no blend
/// @errors For modes outside 0 to 3, prints error lines and keeps the previous mesh.
FOVIX_API void Fovix_SetDrawModeCartoon(VRHANDLE handle, int fromMode, int toMode, int step, int frameCount);

/// Sets how the camera of type 0 is mounted and resets the view. A new mount also selects shape 0.
/// @param handle  a live handle
/// @param mount  FovixCameraMount
/// @errors For a mount outside 0 to 3, prints an error line and changes nothing.
FOVIX_API void Fovix_SetCameraMount(VRHANDLE handle, int mount);

/// Returns the camera mount of type 0.
/// @param handle  a live handle
/// @return FovixCameraMount; 4 for other types and for an invalid handle
FOVIX_API int Fovix_GetCameraMount(VRHANDLE handle);

/// Selects the layout of type 0 or 1 with an animated change and resets the view. Prints
/// `Fovix_SetShape(%d)\n`.
/// @param handle  a live handle
/// @param shape  FovixShape; on mounts 2 and 3 of type 0 it stays 0
/// @errors Type 0: for a shape outside 0 to 10, prints an error line and changes nothing; a shape that the
///   mount does not support shows nothing useful. Type 1: an unsupported shape only resets the view.
FOVIX_API void Fovix_SetShape(VRHANDLE handle, int shape);

/// Returns the layout of type 0 or 1.
/// @param handle  a live handle
/// @return FovixShape; -1 for other types and for an invalid handle
FOVIX_API int Fovix_GetShape(VRHANDLE handle);

/// Sets the lens circle, measured in any image of the camera; it is scaled to the size of the frames. If any
/// value is 0 or less, a centred circle is assumed.
/// @param handle  a live handle
/// @param xCenter,yCenter  centre in pixels from the top left
/// @param radius  pixels
/// @param imgWidth,imgHeight  size in pixels of the image that these refer to
FOVIX_API void Fovix_SetFecParams(VRHANDLE handle, int xCenter, int yCenter, int radius, int imgWidth,
                                  int imgHeight);

/// Selects how type 24 shows its two halves and centres the view.
/// @param handle  a live handle
/// @param mode  FovixTwoLensesDrawMode; any other number draws like 0, at a fixed zoom
FOVIX_API void Fovix_SetTwoLensesDrawMode(VRHANDLE handle, int mode);

/// Moves to both halves or to one of them, in draw mode 1 of type 24 on a surface that is wider than tall.
/// @param handle  a live handle
/// @param screen  FovixTwoLensesScreen, 0 to 2; other numbers are stored but move nothing
FOVIX_API void Fovix_SetTwoLensesScreen(VRHANDLE handle, int screen);

/// Returns the screen of draw mode 1 of type 24.
/// @param handle  a live handle
/// @return the screen; 3 for other draw modes and types and for an invalid handle
FOVIX_API int Fovix_GetTwoLensesScreen(VRHANDLE handle);

/// Sets the colour around the image, starting with the next rendered frame.
/// @param handle  a live handle
/// @param rgb  0xRRGGBB; the top byte is ignored; black at start
FOVIX_API void Fovix_SetBackground(VRHANDLE handle, unsigned int rgb);

/// @}

/// @name Pictures
/// Each of these functions submits one frame, which replaces the previous one.
/// - If data is null, size is negative, width or height is below 1, or width * height * 4 + 1024 exceeds
///   2147483647, the call changes nothing and prints
///   `Texture Parameter Error! data = %p, size = %d, width = %d, height = %d\n`.
/// - A size above width * height * 4 + 1024 prints `Texture Buffer is too small[%d < %d]!\n`; the frame that
///   was uploaded last remains visible.
/// - Frames with fewer bytes than their format needs are padded with black.
/// - A frame that is taller than the largest GL texture, or a YUV frame that is wider than it, prints an
///   error line when it is uploaded, and the previous frame remains. An RGBA frame that is too wide is
///   cropped on the right.
/// @{

/// Submits an RGBA frame.
/// @param handle  a live handle
/// @param data  first byte of the frame
/// @param size  bytes to copy, 0 to width * height * 4 + 1024
/// @param width,height  frame size in pixels, at least 1
FOVIX_API void Fovix_SetRGBTexture(VRHANDLE handle, const unsigned char* data, int size, int width,
                                   int height);

/// Submits a planar YUV 4:2:0 frame.
/// @param handle  a live handle
/// @param data  first byte of the frame
/// @param size  bytes to copy, 0 to width * height * 4 + 1024
/// @param width,height  frame size in pixels, at least 1
FOVIX_API void Fovix_SetYUV420PTexture(VRHANDLE handle, const unsigned char* data, int size, int width,
                                       int height);

/// Submits a frame in any format.
/// @param handle  a live handle
/// @param pixelFmt  FovixPixelFormat; the frame is ignored silently if it is any other number
/// @param data  first byte of the frame
/// @param size  bytes to copy, 0 to width * height * 4 + 1024
/// @param width,height  frame size in pixels, at least 1
FOVIX_API void Fovix_SetTexture(VRHANDLE handle, int pixelFmt, const unsigned char* data, int size, int width,
                                int height);

/// @}

/// @name Several pictures
/// The grid of type 20 and the lenses of type 21. Frames are subject to the rules of the chapter *Pictures*.
/// @{

/// Sets the size of the grid of type 20, 3 x 3 at start. It survives type changes.
/// @param handle  a live handle
/// @param rowNum,columnNum  at least 1; at most 36 cells in total
/// @errors For more than 36 cells, prints `parameters error, rowNum = %d, columnNum = %d\n` and changes
///   nothing. With a value below 1, every rendered frame prints `parameter error in drawSelf()\n`.
FOVIX_API void Fovix_Multi_SetScreenNumber(VRHANDLE handle, int rowNum, int columnNum);

/// Submits an RGBA frame for one cell of type 20 or one lens of type 21.
/// @param handle  a live handle
/// @param index  type 20: row * columns + column, row 0 at the top; type 21: lens, 0 to 35
/// @param data  first byte of the frame
/// @param size  bytes to copy, 0 to width * height * 4 + 1024
/// @param width,height  frame size in pixels, at least 1
/// @errors With other types, prints `Not Multi-Image or Multi-Lens`; for an invalid index,
///   `Multi_Image Parameter Error!` or `Multi-Lens Parameter Error!`.
FOVIX_API void Fovix_Multi_SetRGBTexture(VRHANDLE handle, int index, const unsigned char* data, int size,
                                         int width, int height);

/// Submits a planar YUV 4:2:0 frame for one cell of type 20.
/// @param handle  a live handle
/// @param index  row * columns + column, row 0 at the top
/// @param data  first byte of the frame
/// @param size  bytes to copy, 0 to width * height * 4 + 1024
/// @param width,height  frame size in pixels, at least 1
/// @errors With other types, prints `Not Multi_Image`; for an invalid index, `Multi_Image Parameter Error!`.
FOVIX_API void Fovix_Multi_SetYUV420PTexture(VRHANDLE handle, int index, const unsigned char* data, int size,
                                             int width, int height);

/// Submits a frame in any format for one cell of type 20.
/// @param handle  a live handle
/// @param index  row * columns + column, row 0 at the top
/// @param pixelFmt  FovixPixelFormat; the frame is ignored silently if it is any other number
/// @param data  first byte of the frame
/// @param size  bytes to copy, 0 to width * height * 4 + 1024
/// @param width,height  frame size in pixels, at least 1
/// @errors With other types, prints `Not Multi_Image`; for an invalid index, `Multi_Image Parameter Error!`.
FOVIX_API void Fovix_Multi_SetTexture(VRHANDLE handle, int index, int pixelFmt, const unsigned char* data,
                                      int size, int width, int height);

/// Selects the lens that type 21 shows, starting with the next rendered frame.
/// @param handle  a live handle
/// @param index  0 to lens count - 1; other values are ignored
/// @errors With other types, prints `Fovix_Multi_SwitchLens() current type is not support -> [%d]!\n`.
FOVIX_API void Fovix_Multi_SwitchLens(VRHANDLE handle, int index);

/// Sets the number of lenses of type 21; the selected lens stays the same.
/// @param handle  a live handle
/// @param count  1 to 36, 1 at start; other values are ignored
/// @errors With other types, prints `Fovix_Multi_SetLens() current type is not support -> [%d]!\n`.
FOVIX_API void Fovix_Multi_SetLens(VRHANDLE handle, int count);

/// Returns the number of lenses of type 21.
/// @param handle  a live handle
/// @return 1 to 36; 0 for other types and for an invalid handle
/// @errors With other types, prints `Fovix_Multi_GetLens() current type is not support -> [%d]!\n`.
FOVIX_API int Fovix_Multi_GetLensCount(VRHANDLE handle);

/// Returns the lens that type 21 shows.
/// @param handle  a live handle
/// @return the lens; 0 for other types and for an invalid handle
/// @errors With other types, prints `Fovix_Multi_GetLens() current type is not support -> [%d]!\n`.
FOVIX_API int Fovix_Multi_GetLensIndex(VRHANDLE handle);

/// @}

/// @name Drawing
/// @{

/// Renders one frame: clears the surface, uploads the newest frame, advances animations by one step, draws.
/// Before the first frame is submitted, only the background is drawn.
/// @param handle  a live handle
/// @errors Before Fovix_Prepare(), clears and prints `Fovix_Drawself() Error : Fovix_Prepare has not run\n`.
/// @glthread
FOVIX_API void Fovix_Drawself(VRHANDLE handle);

/// Kept for hosts that ask whether to continue drawing; they should draw at the display's rate.
/// @return always 0
FOVIX_API int Fovix_NeedContinue(void);

/// Reads the pending GL error and prints it as `OpenGLError: %d , %s:%d\n`.
/// @param file  file name to print; may be null
/// @param line  line number to print
/// @return 1 if there was no error, else 0
/// @glthread
FOVIX_API int checkOpenGLError(const char* file, int line);

/// @}

/// @name Touch, sensors and cruise
/// A touch-down chooses the screen under the finger. Touch and sensor functions, Fovix_GetPTZFor180VR(),
/// Fovix_SetPTZFor180VR(), Fovix_DisplayRect() and Fovix_DisplayTarget() act on that screen until the next
/// touch-down. Positions outside the surface are valid. Handles without controllers and the types 20 and 21
/// ignore these functions.
/// @{

/// Begins a gesture: chooses the screen under the finger. Type 0 also stops every animation of that screen's
/// view, type 1 its cruise and its bounces.
/// @param handle  a live handle
/// @param x,y  surface pixels
FOVIX_API void Fovix_OnTouchDown(VRHANDLE handle, float x, float y);

/// Ends a gesture.
/// @param handle  a live handle
/// @param x,y  surface pixels
FOVIX_API void Fovix_OnTouchUp(VRHANDLE handle, float x, float y);

/// Drags the view. On the overview of shape 8 and the strip of shape 9, aims the selected screen instead.
/// @param handle  a live handle
/// @param x,y  surface pixels
FOVIX_API void Fovix_OnTouchMove(VRHANDLE handle, float x, float y);

/// Zooms with two fingers: types 0, 2, 3, 22 and 24. Type 0 also rolls unless ceiling-mounted.
/// @param handle  a live handle
/// @param x1,y1  first finger, surface pixels
/// @param x2,y2  second finger, surface pixels
FOVIX_API void Fovix_OnTouchPinch(VRHANDLE handle, float x1, float y1, float x2, float y2);

/// Zooms by a ratio: all types with controllers except 22.
/// @param handle  a live handle
/// @param scale  finger distance divided by that at the start of the pinch, above 0; 0 moves no view
FOVIX_API void Fovix_OnTouchPinchScale(VRHANDLE handle, float scale);

/// Continues a drag with inertia: all types with controllers except 22.
/// @param handle  a live handle
/// @param velocityX,velocityY  finger speed in pixels per second
FOVIX_API void Fovix_OnTouchFling(VRHANDLE handle, float velocityX, float velocityY);

/// Lets the view settle after a gesture: it springs back from a limit or returns to the whole image.
/// @param handle  a live handle
FOVIX_API void Fovix_AutoAdjust(VRHANDLE handle);

/// Steers types 0 and 1 by tilting the device.
/// @param handle  a live handle
/// @param x,y  sensor readings; type 0 turns by 5 degrees per unit, type 1 looks at 12 degrees per unit
FOVIX_API void Fovix_OnAccelerometer(VRHANDLE handle, float x, float y);

/// Steers types 0 and 1 by turning the device. Changes of up to 0.6 degrees and above 20 degrees are
/// ignored.
/// @param handle  a live handle
/// @param a,b,c  device angles in degrees; a tilts, c pans
FOVIX_API void Fovix_OnOrientation(VRHANDLE handle, float a, float b, float c);

/// Starts automatic panning: type 0 on the ceiling, types 1 and 22.
/// @param handle  a live handle
/// @param speed  0.2 * speed per rendered frame, in degrees or, for type 22, offset units; negative reverses
FOVIX_API void Fovix_StartAutoCruise(VRHANDLE handle, double speed);

/// Stops the cruise; the view stays where it is.
/// @param handle  a live handle
FOVIX_API void Fovix_StopAutoCruise(VRHANDLE handle);

/// @}

/// @name Views
/// - Fovix_SetPTZ() and Fovix_SetRotateZoom() with their variants set the model's view. The touch
///   controllers of types 0, 1, 2, 3 and 24 overwrite it at the start of each rendered frame: if only the
///   host sets views, create the handle with Fovix_CreateNoTouchEvent().
/// - Fovix_SetPTZFor180VR(), Fovix_DisplayRect() and Fovix_DisplayTarget() move the view through its
///   controller, animated like a gesture. Handles without controllers ignore them, except that type 0 still
///   changes to shape 0.
/// - Screens are 0 to 5; functions without _SubScreen act on screen 0. A screen outside 0 to 5 prints an
///   error line and changes nothing; types with a single view ignore the screen.
/// - Output pointers may be null. They are not written if the type has no such view.
/// @{

/// Returns the model's screens to their default view; controllers keep their own.
/// @param handle  a live handle
FOVIX_API void Fovix_ResetPosition(VRHANDLE handle);

/// Sets the view of screen 0 of type 0, clamped to the limits of mount and shape.
/// @param handle  a live handle
/// @param pan,tilt,roll  degrees; pan of shapes 5 and 6 in hundredths of a radian
/// @param zoom  field of view in degrees, 5 to 90 (shapes 7 to 9: 5 to 40)
/// @param ptzFifth  extra tilt of mounts 1 and 2 in degrees, usually 0
FOVIX_API void Fovix_SetPTZ(VRHANDLE handle, double pan, double tilt, double zoom, double roll,
                            double ptzFifth);

/// Reads the clamped view of screen 0 of type 0.
/// @param handle  a live handle
/// @param[out] pan,tilt,zoom,roll  as for Fovix_SetPTZ()
FOVIX_API void Fovix_GetPTZ(VRHANDLE handle, double* pan, double* tilt, double* zoom, double* roll);

/// Sets the view of one screen of type 0, clamped to the limits of mount and shape.
/// @param handle  a live handle
/// @param screen  0 to 5
/// @param pan,tilt,zoom,roll,ptzFifth  as for Fovix_SetPTZ()
FOVIX_API void Fovix_SetPTZ_SubScreen(VRHANDLE handle, int screen, double pan, double tilt, double zoom,
                                      double roll, double ptzFifth);

/// Reads the clamped view of one screen of type 0.
/// @param handle  a live handle
/// @param screen  0 to 5
/// @param[out] pan,tilt,zoom,roll  as for Fovix_SetPTZ()
FOVIX_API void Fovix_GetPTZ_SubScreen(VRHANDLE handle, int screen, double* pan, double* tilt, double* zoom,
                                      double* roll);

/// Sets the view of screen 0 of every type except 0, without limits.
/// @param handle  a live handle
/// @param xAngle,yAngle,zAngle  type 1: pitch, yaw and roll in degrees; type 22: offset right, offset down
///   and depth (0.715); other types: 180 moves the image up (x) or left (y) by half its width, z is only
///   stored
/// @param zoom  factor, usually 0.25 to 20 (type 22: 0.25 to 5)
FOVIX_API void Fovix_SetRotateZoom(VRHANDLE handle, double xAngle, double yAngle, double zAngle, double zoom);

/// Does the same as Fovix_SetRotateZoom(), and the controller of type 22 continues from this view.
/// @param handle  a live handle
/// @param xAngle,yAngle,zAngle,zoom  as for Fovix_SetRotateZoom()
FOVIX_API void Fovix_SetRotateZoomRecoverMode(VRHANDLE handle, double xAngle, double yAngle, double zAngle,
                                              double zoom);

/// Reads the view of screen 0 of every type except 0.
/// @param handle  a live handle
/// @param[out] xAngle,yAngle,zAngle,zoom  as for Fovix_SetRotateZoom()
FOVIX_API void Fovix_GetRotateZoom(VRHANDLE handle, double* xAngle, double* yAngle, double* zAngle,
                                   double* zoom);

/// Sets the view of one screen of every type except 0, without limits.
/// @param handle  a live handle
/// @param screen  0 to 5; only type 1 has more than one
/// @param xAngle,yAngle,zAngle,zoom  as for Fovix_SetRotateZoom()
FOVIX_API void Fovix_SetRotateZoom_SubScreen(VRHANDLE handle, int screen, double xAngle, double yAngle,
                                             double zAngle, double zoom);

/// Reads the view of one screen of every type except 0.
/// @param handle  a live handle
/// @param screen  0 to 5; only type 1 has more than one
/// @param[out] xAngle,yAngle,zAngle,zoom  as for Fovix_SetRotateZoom()
FOVIX_API void Fovix_GetRotateZoom_SubScreen(VRHANDLE handle, int screen, double* xAngle, double* yAngle,
                                             double* zAngle, double* zoom);

/// Rotates the whole image of type 1.
/// @param handle  a live handle
/// @param degrees  0 or more; a negative value turns the rotation off
FOVIX_API void Fovix_SetRotationFor180VR(VRHANDLE handle, double degrees);

/// Reads the moving view of type 1. Each value that is read also advances by one step.
/// @param handle  a live handle
/// @param[out] xAngle,yAngle  pitch and yaw in degrees
/// @param[out] third  always 3.0
/// @param[out] zoom  factor
FOVIX_API void Fovix_GetPTZFor180VR(VRHANDLE handle, double* xAngle, double* yAngle, double* third,
                                    double* zoom);

/// Moves type 1 to a view, on the curved screen (draw mode 3). Angles beyond their limits are clamped.
/// @param handle  a live handle
/// @param xAngle  pitch in degrees, -14 to 14
/// @param yAngle  yaw in degrees, -30 to 30
/// @param zAngle  roll in degrees
/// @param zoom  factor, usually 10 to 20; not clamped
FOVIX_API void Fovix_SetPTZFor180VR(VRHANDLE handle, double xAngle, double yAngle, double zAngle,
                                    double zoom);

/// Moves to a rectangle of the frame: types 0, 1 and 22. Type 0 changes to shape 0.
/// @param handle  a live handle
/// @param left,top,right,bottom  frame pixels; left < right, top < bottom
/// @param width,height  frame size that these refer to, above 0
/// @errors For an empty rectangle, prints `Fovix_DisplayRect, point info error!`; with other types,
///   `current type is not support -> [%d]!\n`. For an invalid handle, also prints
///   `Fovix_DisplayRect Error, handle is NULL!`.
FOVIX_API void Fovix_DisplayRect(VRHANDLE handle, int left, int top, int right, int bottom, int width,
                                 int height);

/// Looks at a point of the frame: types 0 and 1. Type 0 changes to shape 0. Prints its arguments.
/// @param handle  a live handle
/// @param targetX,targetY  frame pixels
/// @param width,height  frame size that these refer to, above 0
/// @errors With other types, prints `current type is not support -> [%d]!\n`. For an invalid handle, also
///   prints `Fovix_DisplayRect Error, handle is NULL!`.
FOVIX_API void Fovix_DisplayTarget(VRHANDLE handle, int targetX, int targetY, int width, int height);

/// Returns how far type 22 has moved sideways.
/// @param handle  a live handle
/// @return -1 (left limit) to 1 (right limit); 0 without a controller, for other types and for an invalid
///   handle
FOVIX_API float Fovix_GetRelativeXOffset(VRHANDLE handle);

/// Sets the zoom limits and the threshold of type 24 and moves to a zoom.
/// @param handle  a live handle
/// @param min  smallest zoom, 1.0 at start; only stored
/// @param max  largest zoom of a pinch, 10.0 at start
/// @param div  zoom at which draw mode 0 changes to the lower half, 3.0 at start
/// @param zoom  factor to move to
FOVIX_API void Fovix_SetLogicZoom(VRHANDLE handle, double min, double max, double div, double zoom);

/// Returns the zoom of type 24.
/// @param handle  a live handle
/// @return the factor; 0 for other types and for an invalid handle
FOVIX_API float Fovix_GetLogicZoom(VRHANDLE handle);

/// @}

#ifdef __cplusplus
}
#endif

#endif  // FOVIX_H
