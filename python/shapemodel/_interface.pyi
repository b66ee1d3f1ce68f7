# The module is written by emit_interface.py from the header of the C library.
from typing import Any

ffi: Any
