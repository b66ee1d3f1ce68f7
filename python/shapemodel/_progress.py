"""Long work: told how far it has come, and stopped by an exception or Ctrl-C."""
from __future__ import annotations

import threading
from typing import Any, Callable, Optional

from ._library import Buffer, Path, checked, ffi, new_slot, warn

#: Told many times a second: the step as "ordering", how much of it is done, and of how much (0: nobody can say). The
#: work stops when it raises, and what it raises reaches who called for the work.
Progress = Callable[[str, int, int], object]


class _Raised(threading.local):
    error: Optional[BaseException] = None


_raised = _Raised()


def _keep(kind: Any, error: BaseException, trace: Any) -> None:
    _raised.error = error.with_traceback(trace)


def _told(context: Any, step: Any, done: int, total: int) -> int:
    # Python looks for signals whenever a function begins: without a progress, too, Ctrl-C raises here.
    if context:
        ffi.from_handle(context)(ffi.string(step).decode(), done, total)
    return 0


# 1, which stops the work, is answered after an exception.
_callback = ffi.callback("sm_progress", _told, error=1, onerror=_keep)


def run(call: Callable[[Any, Any], int], progress: Progress | None,
        file: Path | Callable[[], Path] | None = None) -> list[str]:
    """Calls with a progress callback and its context. Answers the lines for warn().

    file is the one to blame, or tells it after the call. Other threads of Python run meanwhile.
    """
    context = ffi.new_handle(progress) if progress is not None else ffi.NULL
    _raised.error = None
    status = call(_callback, context)
    if _raised.error is not None:
        try:
            raise _raised.error
        finally:
            _raised.error = None  # no name here holds it: it holds this frame, and with that what the call has made
    return checked(status, file() if status and callable(file) else None if callable(file) else file)


def run_with(options: Any, call: Callable[[], int], progress: Progress | None,
             file: Path | Callable[[], Path] | None = None) -> list[str]:
    """The same for a call that has the callback among its options."""

    def told(callback: Any, context: Any) -> int:
        options.progress, options.context = callback, context
        return call()

    return run(told, progress, file)


def take_bytes(options: Any, call: Callable[[Any], int], progress: Progress | None) -> bytes:
    """The bytes of a buffer that such a call, given a place for its handle, answers."""
    slot = new_slot()
    warn(run_with(options, lambda: call(slot), progress))
    return Buffer(slot).to_bytes()
