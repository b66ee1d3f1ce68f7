/// Heap bytes that drawings take.
