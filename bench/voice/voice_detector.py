"""The voice detector of WebRTC, where it is installed, as something that knows nothing of captions: Debian has it in the
package libwebrtc-audio-processing1, whose library is called directly."""
import array
import ctypes
import subprocess

LIBRARY = "libwebrtc_audio_processing.so.1"
RATE = 16000
FRAME_MS = 10
STRICTEST = 3


def library():
    """The detector's functions; None where they aren't installed."""
    try:
        functions = ctypes.CDLL(LIBRARY)
        functions.WebRtcVad_Create.restype = ctypes.c_void_p
        functions.WebRtcVad_Process.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_size_t]
        for name in ("WebRtcVad_Init", "WebRtcVad_Free"):
            getattr(functions, name).argtypes = [ctypes.c_void_p]
        functions.WebRtcVad_set_mode.argtypes = [ctypes.c_void_p, ctypes.c_int]
    except (OSError, AttributeError):
        return None
    return functions


def edges(functions, film):
    """The times in ms at which a film's sound becomes a voice, and those at which it ceases to be one."""
    raw = subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-i", film, "-vn", "-af", "aresample=async=1:first_pts=0",
                          "-ac", "1", "-ar", str(RATE), "-f", "s16le", "-"], check=True, stdout=subprocess.PIPE).stdout
    samples = array.array("h")
    samples.frombytes(raw)
    # Older versions of the library fill a pointer, newer ones return it.
    filled = ctypes.c_void_p()
    returned = functions.WebRtcVad_Create(ctypes.byref(filled))
    detector = filled.value or returned
    functions.WebRtcVad_Init(detector)
    functions.WebRtcVad_set_mode(detector, STRICTEST)
    count = RATE * FRAME_MS // 1000
    address, _ = samples.buffer_info()
    rises, falls, before = [], [], False
    for frame in range(len(samples) // count):
        voice = functions.WebRtcVad_Process(detector, RATE, address + 2 * count * frame, count) == 1
        if voice != before:
            (rises if voice else falls).append(frame * FRAME_MS)
        before = voice
    functions.WebRtcVad_Free(detector)
    return rises, falls


def last_edges(found, held, late, reach):
    """For each held time the last edge before it, no more than `reach` ms; where there is none, what the constant gives."""
    times = []
    for press in held:
        near = [edge for edge in found if press - reach <= edge <= press]
        times.append(near[-1] if near else press - late)
    return times
