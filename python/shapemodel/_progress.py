"""Progress of long work, which an exception or Ctrl-C stops."""
from __future__ import annotations

import threading
from typing import Any, Callable, Optional

from ._library import Buffer, Path, checked, ffi, lib, new_slot, warn

#: Called many times a second with the step (as "ordering"), how much of it is done, and the total (0: not known). An
#: exception from it stops the work and reaches the caller.
Progress = Callable[[str, int, int], object]


class _Raised(threading.local):
    error: Optional[BaseException] = None


_raised = _Raised()


def _keep(kind: Any, error: BaseException, trace: Any) -> None:
    _raised.error = error.with_traceback(trace)


def _told(context: Any, step: Any, done: int, total: int) -> int:
    # Python checks for signals when a function starts: Ctrl-C raises here also without a progress.
    if context:
        ffi.from_handle(context)(ffi.string(step).decode(), done, total)
    return 0


# After an exception the callback returns 1, which stops the work.
_callback = ffi.callback("sm_progress", _told, error=1, onerror=_keep)


def run(call: Callable[[Any, Any], int], progress: Progress | None,
        file: Path | Callable[[], Path] | None = None) -> list[str]:
    """Calls call with a progress callback and its context. Returns the lines for warn().

    file is the file for exceptions, or a function that returns it after the call. Other threads of Python run
    meanwhile.
    """
    context = ffi.new_handle(progress) if progress is not None else ffi.NULL
    _raised.error = None
    status = call(_callback, context)
    if _raised.error is not None:
        try:
            raise _raised.error
        finally:
            # No reference may stay here: the exception refers to this frame, and so to what the call has made.
            _raised.error = None
    if status == lib.SM_STOPPED:  # the callback's exception was lost: another one, of a second Ctrl-C, came in _keep
        raise KeyboardInterrupt
    return checked(status, file() if status and callable(file) else None if callable(file) else file)


def run_with(options: Any, call: Callable[[], int], progress: Progress | None,
             file: Path | Callable[[], Path] | None = None) -> list[str]:
    """run() for a call whose options contain the callback."""

    def told(callback: Any, context: Any) -> int:
        options.progress, options.context = callback, context
        return call()

    return run(told, progress, file)


def take_bytes(options: Any, call: Callable[[Any], int], progress: Progress | None) -> bytes:
    """The bytes of the buffer whose handle such a call stores in its argument."""
    slot = new_slot()
    warn(run_with(options, lambda: call(slot), progress))
    return Buffer(slot).to_bytes()
