/// The real window, driven by pointer and keys.
