/// @file Fovix.h
/// @brief The public interface of libfovix: navigable, corrected views of fisheye pictures, in OpenGL.
///
/// The host decodes and hands in pictures, reports gestures and owns the surface; the library draws. It
/// creates no threads and no GL context, reads no files or environment variables, decodes nothing,
/// presents nothing (the host swaps buffers) and has no clock: animations advance one step per drawn
/// frame.
///
/// @section walk From set-up to shut-down
/// @code{.c}
/// VRHANDLE view = NULL;
/// Fovix_Create(&view);                                 /* any thread; shows the 180-degree type */
/// if (view == NULL) return 1;                          /* no memory */
/// /* make the GL context current */
/// Fovix_Prepare(view);                                 /* once per GL context */
/// Fovix_Init(view, 1280, 720);                         /* and again after every resize */
/// Fovix_SetType(view, FOVIX_TYPE_360VR);
/// Fovix_SetFecParams(view, 960, 540, 540, 1920, 1080); /* after each change of type */
/// while (running) {
///     if (decoded(&picture)) {                         /* usually on the decoder's own thread */
///         Fovix_SetYUV420PTexture(view, picture.bytes, picture.size, picture.width, picture.height);
///     }
///     if (finger.pressed) Fovix_OnTouchDown(view, finger.x, finger.y);
///     if (finger.moved) Fovix_OnTouchMove(view, finger.x, finger.y);
///     if (finger.lifted) {
///         Fovix_OnTouchUp(view, finger.x, finger.y);
///         Fovix_AutoAdjust(view);
///     }
///     Fovix_Drawself(view);                            /* the GL context is current */
///     present();
/// }
/// Fovix_Release(view);
/// @endcode
///
/// @section gl OpenGL
/// Context: a compatibility profile of version 2.1 or later. Fovix_Prepare(), Fovix_Init() and
/// Fovix_Drawself() need it current on the calling thread; checkOpenGLError() reads its error. Nothing
/// else touches GL.
/// - A frame draws into the framebuffer that the host has bound. It sets the viewport, clear colour,
///   depth test (on), blending (on, GL_ONE and GL_ZERO), program, active texture and the 2D textures of
///   units 0 to 3, unpack alignment 1 with row length, skips and byte swap off, no buffer on
///   GL_PIXEL_UNPACK_BUFFER and GL_ARRAY_BUFFER, vertex array object 0, its vertex attributes and, for
///   frames and indicators, line width.
/// - The host's and honoured as they are: scissor, stencil, culling, colour mask, sampler objects on
///   units 0 to 3, pixel transfer. Pending GL errors, the host's included, are read and printed.
/// - After a frame all of that stays set: nothing is restored. Two attribute arrays stay enabled and point
///   at the library's memory, which may be freed after the frame, so a host that draws too disables or
///   points them anew first. The next frame sets all of it again, the textures too.
/// - Fovix_Prepare() sets blending, depth test, program, textures and, where a picture size is known,
///   the attributes in the same way; Fovix_Init() sets the viewport.
/// - GL objects are never deleted by the library; they go with the context. On a new context:
///   Fovix_Prepare(), Fovix_Init(), then hand the pictures in again.
///
/// @section ownership Ownership
/// Pictures are copied before the call returns. Nothing that the library hands out is freed by the
/// host. A handle lives from Fovix_Create() or Fovix_CreateNoTouchEvent() to Fovix_Release(). Live
/// handles are kept in a process-wide table, so a released or foreign pointer is recognised without
/// reading what it points at.
///
/// @section threads Threads
/// Every function may be called from any thread, except the GL ones above. The usual split: the decoder
/// hands in pictures, the input thread gestures, the GL thread draws. One recursive lock for the whole
/// process guards short sections (the copy of a picture, a change of type, the uploads); it is not held
/// while a model draws. A type may change, and a handle be released, while other threads are inside a
/// call. A getter sees the value last set, which need not have been drawn.
///
/// @section units Coordinates and units
/// Touches: surface pixels from the top left, on the surface size given to Fovix_Init(). Pictures: rows
/// top to bottom. Angles: degrees. Zoom: for the 360-degree type a field of view in degrees (smaller is
/// closer), else a factor (1.0 is normal, larger is closer). Speeds: per drawn frame. Screens count
/// from 0.
///
/// @section diagnostics Diagnostics and refused calls
/// There are no error codes: diagnostics are plain lines on standard output. A null handle gives
/// `Error VRHANDLE, is NULL\n`, one that is not live `Error VRHANDLE\n`; the call then does nothing
/// more and a getter returns the failure result of its entry. Below, "bad handle" means just that.
/// Numbers that are not finite (NaN, infinity) are refused by every function that takes float or
/// double, and change nothing. What a display type does not know is skipped without a line unless an
/// entry says otherwise.
#ifndef FOVIX_H
#define FOVIX_H

/// @name Version of this header
/// @{
#define FOVIX_VERSION_MAJOR 1  ///< changes when a host must change
#define FOVIX_VERSION_MINOR 2  ///< grows with new functions
#define FOVIX_VERSION_PATCH 1  ///< grows with repairs
/// @}

/// Marks the exported functions; FOVIX_BUILDING is set only while the library itself is built.
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

/// One view of one camera; opaque.
typedef struct FovixContext* VRHANDLE;

/// Display types, for Fovix_SetType(). Any other number shows the plain picture, like FOVIX_TYPE_ORIGINAL.
enum FovixDisplayType {
    FOVIX_TYPE_360VR = 0,         ///< 360-degree panorama, one to six pan-tilt-zoom screens
    FOVIX_TYPE_180VR = 1,         ///< 180-degree view; the type of a new handle
    FOVIX_TYPE_ORIGINAL = 2,      ///< the plain fisheye picture, zoomable
    FOVIX_TYPE_KORVEL = 3,        ///< the straightened picture of the Korvel lens
    FOVIX_TYPE_MULTI_IMAGE = 20,  ///< a grid of up to 36 pictures
    FOVIX_TYPE_MULTI_LENS = 21,   ///< one of up to 36 lens pictures
    FOVIX_TYPE_SINGLE_PIP = 22,   ///< zoomable picture; on a square surface with an overview inset
    FOVIX_TYPE_TWO_LENSES = 24    ///< two lenses in one picture, one above the other
};

/// Pixel formats. W and H are the picture's size, halves are integer divisions, rows have no gaps.
enum FovixPixelFormat {
    FOVIX_FORMAT_RGBA = 1,     ///< R, G, B, A bytes: 4 W H
    FOVIX_FORMAT_YUV420P = 3,  ///< planes Y (W H), U at W H, V at W H + W H / 4
    FOVIX_FORMAT_NV12 = 9,     ///< plane Y, then W H / 4 chroma pairs, U first
    FOVIX_FORMAT_NV21 = 10     ///< plane Y, then W H / 4 chroma pairs, V first
};

/// How the camera of a 360-degree view hangs, for Fovix_SetCameraMount().
enum FovixCameraMount {
    FOVIX_MOUNT_CEILING = 0,        ///< looks down; all shapes
    FOVIX_MOUNT_WALL = 1,           ///< looks ahead; shapes 0, 2, 5, 6 and 8
    FOVIX_MOUNT_WALL_INVERTED = 2,  ///< as on a wall, turned upside down; shape 0
    FOVIX_MOUNT_FLOOR = 3           ///< looks up; shape 0
};

/// Layouts, for Fovix_SetShape(). The 180-degree type knows 0, 3, 5, 7 and 10.
enum FovixShape {
    FOVIX_SHAPE_SINGLE = 0,           ///< one screen on the hemisphere; 180: the lens disc
    FOVIX_SHAPE_DOME = 1,             ///< the hemisphere as a dome
    FOVIX_SHAPE_BOWL = 2,             ///< the hemisphere as a bowl
    FOVIX_SHAPE_CYLINDER = 3,         ///< a cylinder seen from outside; 180: the full cylinder
    FOVIX_SHAPE_CYLINDER_INSIDE = 4,  ///< a cylinder seen from inside
    FOVIX_SHAPE_STRIP = 5,            ///< the panorama as one strip; 180: the stretched picture
    FOVIX_SHAPE_TWO_STRIPS = 6,       ///< two strips, half a turn apart
    FOVIX_SHAPE_FOUR_SCREENS = 7,     ///< two by two screens
    FOVIX_SHAPE_OVERVIEW_FIVE = 8,    ///< overview (screen 0) and five screens round it
    FOVIX_SHAPE_TWO_AND_STRIP = 9,    ///< two screens above the strip
    FOVIX_SHAPE_LARGE_AND_TWO = 10    ///< 180 only: one large screen above two small ones
};

/// Draw modes of the 180-degree type, for Fovix_SetDrawMode().
enum Fovix180DrawMode {
    FOVIX_180_DISC = 0,      ///< the lens disc
    FOVIX_180_STRETCH = 1,   ///< stretched flat
    FOVIX_180_CYLINDER = 2,  ///< round a full cylinder
    FOVIX_180_CURVED = 3     ///< on a shallow curved screen
};

/// Draw modes of the two-lens type, for Fovix_SetTwoLensesDrawMode().
enum FovixTwoLensesDrawMode {
    FOVIX_TWO_LENSES_BY_ZOOM = 0,  ///< upper picture below the zoom threshold, lower picture from it on
    FOVIX_TWO_LENSES_BOTH = 1,     ///< both, or the one chosen with Fovix_SetTwoLensesScreen()
    FOVIX_TWO_LENSES_UPPER = 2,    ///< the upper picture, fixed
    FOVIX_TWO_LENSES_LOWER = 3     ///< the lower picture, fixed
};

/// Screens of the two-lens type, for Fovix_SetTwoLensesScreen().
enum FovixTwoLensesScreen {
    FOVIX_TWO_LENSES_SCREEN_BOTH = 0,    ///< both; above each other on a surface not wider than tall
    FOVIX_TWO_LENSES_SCREEN_FIRST = 1,   ///< the first picture, normally the upper one
    FOVIX_TWO_LENSES_SCREEN_SECOND = 2,  ///< the second picture, the lower one
    FOVIX_TWO_LENSES_SCREEN_NONE = 3     ///< only returned: the type or draw mode has no such choice
};

/// @name Lifecycle
/// @{

/// Names the version of the library.
/// @return the constant text `1.2.1_dbg`; never freed.
/// @note Any thread; no GL.
FOVIX_API const char* Fovix_Version(void);

/// Makes a handle of type 1 with touch controllers and prints the version line.
/// @param out  receives the handle; null when memory is short
/// @note Any thread; no GL. A null out makes nothing but the line `Fovix Version : %s\n`.
FOVIX_API void Fovix_Create(VRHANDLE* out);

/// Makes a handle without touch controllers: gestures, sensors and cruise do nothing, views are the host's.
/// @param out  receives the handle; null when memory is short
/// @note Any thread; no GL. A null out makes nothing but the line `Fovix Version : %s\n`.
FOVIX_API void Fovix_CreateNoTouchEvent(VRHANDLE* out);

/// Builds the shader programs and textures in the current GL context, forgets all pictures, resets the
///   view.
/// @param handle  a live handle
/// @note GL thread; calls GL. Call it first, and again on every new context. Without a current context:
///   `Fovix Error : no OpenGL 2.0 context is current\n`, nothing is built. Bad handle: its line.
FOVIX_API void Fovix_Prepare(VRHANDLE handle);

/// Tells the size of the surface and sets the viewport.
/// @param handle  a live handle
/// @param width,height  surface size in pixels, above 0
/// @note GL thread; calls GL. Call it after Fovix_Prepare() and every resize. A size below 1 draws nothing
///   useful. Bad handle: its line.
FOVIX_API void Fovix_Init(VRHANDLE handle, int width, int height);

/// Reads the size last given to Fovix_Init().
/// @param handle  a live handle
/// @param width,height  receive pixels; either may be null
/// @note Any thread; no GL. Bad handle: its line, nothing is written.
FOVIX_API void Fovix_getViewSize(VRHANDLE handle, int* width, int* height);

/// Multiplies every viewport of every handle, for surfaces with denser pixels.
/// @param zoom  factor above 0; 1 at start
/// @note Any thread; no GL. Takes effect at the next Fovix_Init() or frame. 0 or less: kept as it was.
FOVIX_API void Fovix_SetPPIZoom(int zoom);

/// Forgets the picture size: frames show only the background until a picture comes.
/// @param handle  a live handle
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_CleanUp(VRHANDLE handle);

/// Destroys the handle; its GL objects stay until the context goes.
/// @param handle  a live handle
/// @note Any thread; no GL. Other threads may still be inside a call. Bad handle, released twice included:
///   its line.
FOVIX_API void Fovix_Release(VRHANDLE handle);

/// @}

/// @name Display type and parameters
/// @{

/// Changes the display type: new model, new controllers, default view, no lens parameters.
/// @param handle  a live handle
/// @param type  FovixDisplayType; any other number is the plain picture
/// @note Any thread; no GL. The current type changes nothing. Type 3 is refused on type 0 or 1 once two
///   changes have been accepted since the handle was made. Bad handle: its line and
///   `Fovix_SetType() Error! handle is NULL!\n`.
FOVIX_API void Fovix_SetType(VRHANDLE handle, int type);

/// Reads the display type.
/// @param handle  a live handle
/// @return the type as it was set; 1 for a bad handle.
/// @note Any thread; no GL.
FOVIX_API int Fovix_GetType(VRHANDLE handle);

/// Chooses the projection of type 1, or shows the overview inset of type 22.
/// @param handle  a live handle
/// @param mode  type 1: Fovix180DrawMode; type 22: 0 without inset, any other with it (3 at start)
/// @note Any thread; no GL. A mode of type 1 outside 0 to 3: each frame prints why it has no picture mesh.
///   Bad handle: its line.
FOVIX_API void Fovix_SetDrawMode(VRHANDLE handle, int mode);

/// Shows a blend from one projection of type 1 to another; the draw mode in force stays.
/// @param handle  a live handle
/// @param from,to  Fovix180DrawMode
/// @param a  step to begin at, usually 1
/// @param frames  length in drawn frames; below 1 none
/// @note Any thread; no GL. Fovix_SetShape() does this by itself. Modes outside 0 to 3: lines, the mesh
///   before stays. Bad handle: its line.
FOVIX_API void Fovix_SetDrawModeCartoon(VRHANDLE handle, int from, int to, int a, int frames);

/// Tells how the camera of type 0 hangs; a new mount sets shape 0. Resets the view.
/// @param handle  a live handle
/// @param mount  FovixCameraMount
/// @note Any thread; no GL. Outside 0 to 3: refused, nothing changes. Bad handle: its line.
FOVIX_API void Fovix_SetCameraMount(VRHANDLE handle, int mount);

/// Reads the camera mount of type 0.
/// @param handle  a live handle
/// @return FovixCameraMount; 4 for other types and a bad handle.
/// @note Any thread; no GL.
FOVIX_API int Fovix_GetCameraMount(VRHANDLE handle);

/// Chooses the layout of type 0 or 1 and resets the view; the change is animated.
/// @param handle  a live handle
/// @param shape  FovixShape; on mounts 2 and 3 of type 0 it stays 0
/// @note Any thread; no GL. Prints `Fovix_SetShape(%d)\n`. Type 0, outside 0 to 10: nothing changes. Type 1,
///   not known to it: the layout stays, the view is reset. Known, but not made for the mount: an empty
///   picture. Bad handle: its line.
FOVIX_API void Fovix_SetShape(VRHANDLE handle, int shape);

/// Reads the layout of type 0 or 1.
/// @param handle  a live handle
/// @return FovixShape; -1 for other types and a bad handle.
/// @note Any thread; no GL.
FOVIX_API int Fovix_GetShape(VRHANDLE handle);

/// Tells where the lens circle lies in the camera's image; scaled to the pictures handed in.
/// @param handle  a live handle
/// @param xCenter,yCenter  centre in pixels from the top left
/// @param radius  pixels
/// @param imgWidth,imgHeight  size of the image that these refer to, pixels
/// @note Any thread; no GL. Any value of 0 or less: a circle in the middle of the picture. Bad handle: its
///   line.
FOVIX_API void Fovix_SetFecParams(VRHANDLE handle, int xCenter, int yCenter, int radius, int imgWidth,
                                  int imgHeight);

/// Chooses how type 24 shows its two pictures and centres the view.
/// @param handle  a live handle
/// @param mode  FovixTwoLensesDrawMode; other numbers draw as 0
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_SetTwoLensesDrawMode(VRHANDLE handle, int mode);

/// Moves to both pictures or one of them, in draw mode 1 of type 24.
/// @param handle  a live handle
/// @param screen  FovixTwoLensesScreen 0 to 2; other numbers are kept but move nothing
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_SetTwoLensesScreen(VRHANDLE handle, int screen);

/// Reads the screen of draw mode 1 of type 24.
/// @param handle  a live handle
/// @return the screen; 3 for other draw modes and types and a bad handle.
/// @note Any thread; no GL.
FOVIX_API int Fovix_GetTwoLensesScreen(VRHANDLE handle);

/// Sets the colour round the picture from the next frame on.
/// @param handle  a live handle
/// @param rgb  0xRRGGBB; the top byte is ignored; black at start
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_SetBackground(VRHANDLE handle, unsigned int rgb);

/// @}

/// @name Pictures
/// A picture is refused, and everything stays as it was, when data is null, size is negative, width or
/// height is below 1 or width * height * 4 + 1024 exceeds 2147483647:
/// `Texture Parameter Error! data = %p, size = %d, width = %d, height = %d\n`. A size above that sum prints
/// `Texture Buffer is too small[%d < %d]!\n` and the picture uploaded last stays. A picture shorter than
/// its format needs is completed with black. A picture taller than GL's largest texture, or a YUV one
/// wider, is reported when it is drawn; of a wider RGBA one the left part is shown.
/// @{

/// Hands in an RGBA picture.
/// @param handle  a live handle
/// @param data  first byte of the picture; size bytes are read
/// @param size  bytes to copy: 0 to width * height * 4 + 1024
/// @param width,height  pixels, at least 1; width * height * 4 + 1024 must fit an int
/// @note Any thread; no GL. Bad input: as above. Bad handle: its line.
FOVIX_API void Fovix_SetRGBTexture(VRHANDLE handle, const unsigned char* data, int size, int width,
                                   int height);

/// Hands in a planar YUV 4:2:0 picture.
/// @param handle  a live handle
/// @param data  first byte of the picture; size bytes are read
/// @param size  bytes to copy: 0 to width * height * 4 + 1024
/// @param width,height  pixels, at least 1; width * height * 4 + 1024 must fit an int
/// @note Any thread; no GL. Bad input: as above. Bad handle: its line.
FOVIX_API void Fovix_SetYUV420PTexture(VRHANDLE handle, const unsigned char* data, int size, int width,
                                       int height);

/// Hands in a picture of any format.
/// @param handle  a live handle
/// @param pixelFmt  FovixPixelFormat
/// @param data  first byte of the picture; size bytes are read
/// @param size  bytes to copy: 0 to width * height * 4 + 1024
/// @param width,height  pixels, at least 1; width * height * 4 + 1024 must fit an int
/// @note Any thread; no GL. Any other pixelFmt: ignored without a line. Else as above. Bad handle: its
///   line.
FOVIX_API void Fovix_SetTexture(VRHANDLE handle, int pixelFmt, const unsigned char* data, int size, int width,
                                int height);

/// Sets the grid of type 20 (3 x 3 at start); kept over changes of type.
/// @param handle  a live handle
/// @param rowNum,columnNum  at least 1, together at most 36 cells
/// @note Any thread; no GL. More than 36, computed in 64 bits:
///   `parameters error, rowNum = %d, columnNum = %d\n` and kept as it was. Below 1: every frame prints
///   `parameter error in drawSelf()\n`. Bad handle: its line.
FOVIX_API void Fovix_Multi_SetScreenNumber(VRHANDLE handle, int rowNum, int columnNum);

/// Hands in the RGBA picture of one grid cell or one lens (types 20 and 21).
/// @param handle  a live handle
/// @param index  type 20: row * columns + column, row 0 on top; type 21: lens 0 to 35
/// @param data  first byte of the picture; size bytes are read
/// @param size  bytes to copy: 0 to width * height * 4 + 1024
/// @param width,height  pixels, at least 1; width * height * 4 + 1024 must fit an int
/// @note Any thread; no GL. Refused with `Not Multi-Image or Multi-Lens`, `Multi_Image Parameter Error!` or
///   `Multi-Lens Parameter Error!`; else as above. Bad handle: its line.
FOVIX_API void Fovix_Multi_SetRGBTexture(VRHANDLE handle, int index, const unsigned char* data, int size,
                                         int width, int height);

/// Hands in the planar YUV 4:2:0 picture of one grid cell (type 20).
/// @param handle  a live handle
/// @param index  row * columns + column, row 0 on top
/// @param data  first byte of the picture; size bytes are read
/// @param size  bytes to copy: 0 to width * height * 4 + 1024
/// @param width,height  pixels, at least 1; width * height * 4 + 1024 must fit an int
/// @note Any thread; no GL. Refused with `Not Multi_Image` or `Multi_Image Parameter Error!`; else as
///   above. Bad handle: its line.
FOVIX_API void Fovix_Multi_SetYUV420PTexture(VRHANDLE handle, int index, const unsigned char* data, int size,
                                             int width, int height);

/// Hands in the picture of one grid cell in any format (type 20).
/// @param handle  a live handle
/// @param index  row * columns + column, row 0 on top
/// @param pixelFmt  FovixPixelFormat
/// @param data  first byte of the picture; size bytes are read
/// @param size  bytes to copy: 0 to width * height * 4 + 1024
/// @param width,height  pixels, at least 1; width * height * 4 + 1024 must fit an int
/// @note Any thread; no GL. As Fovix_Multi_SetYUV420PTexture(); any other pixelFmt: ignored without a line.
///   Bad handle: its line.
FOVIX_API void Fovix_Multi_SetTexture(VRHANDLE handle, int index, int pixelFmt, const unsigned char* data,
                                      int size, int width, int height);

/// Shows another lens of type 21 from the next frame on.
/// @param handle  a live handle
/// @param index  0 to lens count - 1; others are ignored
/// @note Any thread; no GL. Other types: `Fovix_Multi_SwitchLens() current type is not support -> [%d]!\n`.
///   Bad handle: its line.
FOVIX_API void Fovix_Multi_SwitchLens(VRHANDLE handle, int index);

/// Sets the number of lenses of type 21; the lens shown stays.
/// @param handle  a live handle
/// @param count  1 to 36 (1 at start); others are ignored
/// @note Any thread; no GL. Other types: `Fovix_Multi_SetLens() current type is not support -> [%d]!\n`.
///   Bad handle: its line.
FOVIX_API void Fovix_Multi_SetLens(VRHANDLE handle, int count);

/// Reads the number of lenses of type 21.
/// @param handle  a live handle
/// @return 1 to 36; 0 for other types and a bad handle.
/// @note Any thread; no GL. Other types: `Fovix_Multi_GetLens() current type is not support -> [%d]!\n`.
FOVIX_API int Fovix_Multi_GetLensCount(VRHANDLE handle);

/// Reads which lens type 21 shows.
/// @param handle  a live handle
/// @return the lens; 0 for other types and a bad handle.
/// @note Any thread; no GL. Other types: `Fovix_Multi_GetLens() current type is not support -> [%d]!\n`.
FOVIX_API int Fovix_Multi_GetLensIndex(VRHANDLE handle);

/// @}

/// @name Drawing
/// @{

/// Draws one frame: clears, uploads the newest picture, advances animations one step, draws.
/// @param handle  a live handle
/// @note GL thread; calls GL. Without a picture only the background is drawn. Before Fovix_Prepare() it
///   clears and prints `Fovix_Drawself() Error : Fovix_Prepare has not run\n`. Bad handle: its line.
FOVIX_API void Fovix_Drawself(VRHANDLE handle);

/// Kept for hosts that ask whether to go on drawing.
/// @return always 0; draw at the display's rate.
/// @note Any thread; no GL.
FOVIX_API int Fovix_NeedContinue(void);

/// Reads the pending GL error and prints it as `OpenGLError: %d , %s:%d\n`.
/// @param file  name to print; null prints none
/// @param line  line to print
/// @return 1 without an error, else 0.
/// @note GL thread; calls GL.
FOVIX_API int checkOpenGLError(const char* file, int line);

/// @}

/// @name Touch and sensors
/// A touch-down chooses the screen under the finger; the touch, sensor, type-1 and target functions then
/// act on that screen until the next one. Positions outside the surface are allowed. Handles and types
/// without controllers (20, 21) ignore them.
/// @{

/// Begins a gesture: chooses the screen under the finger, stops spin, cruise and rebounds.
/// @param handle  a live handle
/// @param x,y  surface pixels
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_OnTouchDown(VRHANDLE handle, float x, float y);

/// Ends a gesture.
/// @param handle  a live handle
/// @param x,y  surface pixels
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_OnTouchUp(VRHANDLE handle, float x, float y);

/// Drags the view; on the overview of shape 8 or the strip of shape 9 it aims the selected screen.
/// @param handle  a live handle
/// @param x,y  surface pixels
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_OnTouchMove(VRHANDLE handle, float x, float y);

/// Zooms with two fingers; types 0, 22, 24 and the plain ones. Off the ceiling type 0 also rolls.
/// @param handle  a live handle
/// @param x1,y1  first finger, surface pixels
/// @param x2,y2  second finger, surface pixels
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_OnTouchPinch(VRHANDLE handle, float x1, float y1, float x2, float y2);

/// Zooms by a ratio, all types with controllers but 22.
/// @param handle  a live handle
/// @param scale  finger distance over that at the start of the pinch, above 0
/// @note Any thread; no GL. A scale of 0 moves no view. Bad handle: its line.
FOVIX_API void Fovix_OnTouchPinchScale(VRHANDLE handle, float scale);

/// Lets the view run on after a drag, all types with controllers but 22.
/// @param handle  a live handle
/// @param velocityX,velocityY  finger speed, pixels per second
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_OnTouchFling(VRHANDLE handle, float velocityX, float velocityY);

/// Lets the view settle at the end of a gesture: springs back from a limit or to the whole picture.
/// @param handle  a live handle
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_AutoAdjust(VRHANDLE handle);

/// Steers types 0 and 1 by tilting the device.
/// @param handle  a live handle
/// @param x,y  sensor readings; type 0 turns on by 5 degrees a unit, type 1 looks at 12 degrees a unit
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_OnAccelerometer(VRHANDLE handle, float x, float y);

/// Steers types 0 and 1 by turning the device.
/// @param handle  a live handle
/// @param a,b,c  device angles in degrees: a tilts, c pans; steps up to 0.6 and jumps above 20 move nothing
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_OnOrientation(VRHANDLE handle, float a, float b, float c);

/// @}

/// @name Cruise and reset
/// @{

/// Lets the view wander: type 0 on the ceiling, types 1 and 22.
/// @param handle  a live handle
/// @param speed  moves 0.2 * speed per frame (degrees; offset units for type 22); negative reverses
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_StartAutoCruise(VRHANDLE handle, double speed);

/// Ends the cruise; the view stays where it is.
/// @param handle  a live handle
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_StopAutoCruise(VRHANDLE handle);

/// Returns the model's screens to their default view; a controller keeps its own.
/// @param handle  a live handle
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_ResetPosition(VRHANDLE handle);

/// @}

/// @name Pan-tilt-zoom and rotate-zoom
/// These set the model's view. On a handle with touch controllers those of types 0, 1, 24 and the plain
/// ones write their own view at the start of each frame, before it is drawn: take
/// Fovix_CreateNoTouchEvent() for views that only the host sets. Screens: 0 to 5; functions without
/// _SubScreen mean screen 0. A screen outside 0 to 5 is refused and changes nothing (types with one view
/// ignore the screen). Output pointers may be null; where the type has no such view, or the handle is bad,
/// they are not written.
/// @{

/// Sets the view of screen 0 of type 0, within the limits of mount and shape.
/// @param handle  a live handle
/// @param pan,tilt,roll  degrees; pan of shapes 5 and 6 in hundredths of a radian
/// @param zoom  field of view in degrees, 5 to 90, or to 40 in shapes 7 to 9
/// @param ptzFifth  extra tilt of mounts 1 and 2 in degrees, usually 0
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_SetPTZ(VRHANDLE handle, double pan, double tilt, double zoom, double roll,
                            double ptzFifth);

/// Reads the view of screen 0 of type 0 as the limits left it.
/// @param handle  a live handle
/// @param pan,tilt,zoom,roll  receive what Fovix_SetPTZ() takes
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_GetPTZ(VRHANDLE handle, double* pan, double* tilt, double* zoom, double* roll);

/// Sets the view of one screen of type 0.
/// @param handle  a live handle
/// @param screen  0 to 5
/// @param pan,tilt,zoom,roll,ptzFifth  as Fovix_SetPTZ()
/// @note Any thread; no GL. Screen outside 0 to 5: refused. Bad handle: its line.
FOVIX_API void Fovix_SetPTZ_SubScreen(VRHANDLE handle, int screen, double pan, double tilt, double zoom,
                                      double roll, double ptzFifth);

/// Reads the view of one screen of type 0.
/// @param handle  a live handle
/// @param screen  0 to 5
/// @param pan,tilt,zoom,roll  receive what Fovix_SetPTZ() takes
/// @note Any thread; no GL. Screen outside 0 to 5: nothing is written. Bad handle: its line.
FOVIX_API void Fovix_GetPTZ_SubScreen(VRHANDLE handle, int screen, double* pan, double* tilt, double* zoom,
                                      double* roll);

/// Sets the view of screen 0 of every type but 0; no limits are applied.
/// @param handle  a live handle
/// @param xAngle,yAngle,zAngle  type 1: pitch, yaw, roll in degrees; type 22: offset right, offset down,
///   depth (0.715); others: 180 moves the picture up (x) or left (y) by half its
///   width, z is only kept
/// @param zoom  factor; 0.25 to 20, type 22 to 5
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_SetRotateZoom(VRHANDLE handle, double xAngle, double yAngle, double zAngle, double zoom);

/// As Fovix_SetRotateZoom(), and the controller of type 22 goes on from this view.
/// @param handle  a live handle
/// @param xAngle,yAngle,zAngle,zoom  as Fovix_SetRotateZoom()
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_SetRotateZoomRecoverMode(VRHANDLE handle, double xAngle, double yAngle, double zAngle,
                                              double zoom);

/// Reads the view of screen 0 of every type but 0.
/// @param handle  a live handle
/// @param xAngle,yAngle,zAngle,zoom  receive what Fovix_SetRotateZoom() takes
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_GetRotateZoom(VRHANDLE handle, double* xAngle, double* yAngle, double* zAngle,
                                   double* zoom);

/// Sets the view of one screen.
/// @param handle  a live handle
/// @param screen  0 to 5; only type 1 has more than one
/// @param xAngle,yAngle,zAngle,zoom  as Fovix_SetRotateZoom()
/// @note Any thread; no GL. Type 1, screen outside 0 to 5: refused. Bad handle: its line.
FOVIX_API void Fovix_SetRotateZoom_SubScreen(VRHANDLE handle, int screen, double xAngle, double yAngle,
                                             double zAngle, double zoom);

/// Reads the view of one screen.
/// @param handle  a live handle
/// @param screen  0 to 5; only type 1 has more than one
/// @param xAngle,yAngle,zAngle,zoom  receive what Fovix_SetRotateZoom() takes
/// @note Any thread; no GL. Type 1, screen outside 0 to 5: nothing is written. Bad handle: its line.
FOVIX_API void Fovix_GetRotateZoom_SubScreen(VRHANDLE handle, int screen, double* xAngle, double* yAngle,
                                             double* zAngle, double* zoom);

/// Turns the whole picture of type 1.
/// @param handle  a live handle
/// @param degrees  0 and above; a negative value switches the turn off
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_SetRotationFor180VR(VRHANDLE handle, double degrees);

/// @}

/// @name Views through the controllers
/// These move the view by animation, as a gesture would. Handles without controllers ignore them.
/// @{

/// Reads the moving view of type 1; each value that is read also advances by one step.
/// @param handle  a live handle
/// @param xAngle,yAngle  receive pitch and yaw in degrees; may be null
/// @param third  receives 3.0; may be null
/// @param zoom  receives the factor; may be null
/// @note Any thread; no GL. Other types, bad handle: nothing is written.
FOVIX_API void Fovix_GetPTZFor180VR(VRHANDLE handle, double* xAngle, double* yAngle, double* third,
                                    double* zoom);

/// Moves type 1 to a view, on the curved screen (draw mode 3).
/// @param handle  a live handle
/// @param xAngle  pitch in degrees, -14 to 14
/// @param yAngle  yaw in degrees, -30 to 30
/// @param zAngle  roll in degrees
/// @param zoom  factor, 10 to 20 by habit; not limited
/// @note Any thread; no GL. Angles beyond: limited. Bad handle: its line.
FOVIX_API void Fovix_SetPTZFor180VR(VRHANDLE handle, double xAngle, double yAngle, double zAngle,
                                    double zoom);

/// Shows a rectangle of the picture; types 0, 1 and 22. Type 0 goes to shape 0.
/// @param handle  a live handle
/// @param left,top,right,bottom  picture pixels; left < right, top < bottom
/// @param width,height  size of the picture that these refer to, above 0
/// @note Any thread; no GL. Empty rectangle: `Fovix_DisplayRect, point info error!`. Other types:
///   `current type is not support -> [%d]!\n`. Bad handle: its line and
///   `Fovix_DisplayRect Error, handle is NULL!`.
FOVIX_API void Fovix_DisplayRect(VRHANDLE handle, int left, int top, int right, int bottom, int width,
                                 int height);

/// Looks at a point of the picture; types 0 and 1. Type 0 goes to shape 0.
/// @param handle  a live handle
/// @param targetX,targetY  picture pixels
/// @param width,height  size of the picture that these refer to, above 0
/// @note Any thread; no GL. Prints its arguments. Other types: `current type is not support -> [%d]!\n`.
///   Bad handle: its line and `Fovix_DisplayRect Error, handle is NULL!`.
FOVIX_API void Fovix_DisplayTarget(VRHANDLE handle, int targetX, int targetY, int width, int height);

/// Reads how far type 22 has moved sideways.
/// @param handle  a live handle
/// @return -1 (left limit) to 1 (right limit); 0 for other types and a bad handle.
/// @note Any thread; no GL.
FOVIX_API float Fovix_GetRelativeXOffset(VRHANDLE handle);

/// Sets the zoom thresholds of type 24 and moves to a zoom.
/// @param handle  a live handle
/// @param min  lowest zoom, 1.0 at start
/// @param max  highest zoom by pinching, 10.0 at start
/// @param div  zoom at which draw mode 0 changes to the lower picture, 3.0 at start
/// @param zoom  factor to move to
/// @note Any thread; no GL. Bad handle: its line.
FOVIX_API void Fovix_SetLogicZoom(VRHANDLE handle, double min, double max, double div, double zoom);

/// Reads the zoom of type 24.
/// @param handle  a live handle
/// @return the factor; 0 for other types and a bad handle.
/// @note Any thread; no GL.
FOVIX_API float Fovix_GetLogicZoom(VRHANDLE handle);

/// @}

#ifdef __cplusplus
}
#endif

#endif  // FOVIX_H
