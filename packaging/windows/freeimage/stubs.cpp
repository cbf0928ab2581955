// Formats that are left out keep their places, so that the numbers of the others stay right.

#include "FreeImage.h"
#include "Plugin.h"
#include "Utilities.h"

namespace {

template <const char* Name>
struct Stub {
    static const char* DLL_CALLCONV Format() { return Name; }
    static const char* DLL_CALLCONV Description() { return "not built in"; }
    static const char* DLL_CALLCONV Extensions() { return ""; }
    static BOOL DLL_CALLCONV HasDepth(int) { return FALSE; }
    static BOOL DLL_CALLCONV HasType(FREE_IMAGE_TYPE) { return FALSE; }

    static void Init(Plugin* plugin) {
        plugin->format_proc = Format;
        plugin->description_proc = Description;
        plugin->extension_proc = Extensions;
        plugin->supports_export_bpp_proc = HasDepth;
        plugin->supports_export_type_proc = HasType;
    }
};

constexpr char exr[] = "EXR";
constexpr char j2k[] = "J2K";
constexpr char jp2[] = "JP2";
constexpr char raw[] = "RAW";
constexpr char webp[] = "WEBP";
constexpr char jxr[] = "JPEG-XR";

}  // namespace

void DLL_CALLCONV InitEXR(Plugin* plugin, int) { Stub<exr>::Init(plugin); }
void DLL_CALLCONV InitJ2K(Plugin* plugin, int) { Stub<j2k>::Init(plugin); }
void DLL_CALLCONV InitJP2(Plugin* plugin, int) { Stub<jp2>::Init(plugin); }
void DLL_CALLCONV InitRAW(Plugin* plugin, int) { Stub<raw>::Init(plugin); }
void DLL_CALLCONV InitWEBP(Plugin* plugin, int) { Stub<webp>::Init(plugin); }
void DLL_CALLCONV InitJXR(Plugin* plugin, int) { Stub<jxr>::Init(plugin); }
