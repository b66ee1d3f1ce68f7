/// The open drawing: edits and the way back, files and what is left of crashes.
