// Keeps a library valid while its folder has no sources of its own.
