#pragma once

#include <glib-object.h>
#include <glib.h>

#include <memory>

namespace quorvantel::platform {

struct GObjectDeleter {
    void operator()(gpointer object) const { g_object_unref(object); }
};

/// Holds one reference to a GObject.
template <typename Object>
using GObjectPointer = std::unique_ptr<Object, GObjectDeleter>;

struct GFreeDeleter {
    void operator()(gpointer memory) const { g_free(memory); }
};

/// Owns a text that GLib allocated.
using GText = std::unique_ptr<gchar, GFreeDeleter>;

struct GStrvDeleter {
    void operator()(gchar** texts) const { g_strfreev(texts); }
};

/// Owns a null-terminated list of texts that GLib allocated.
using GTextList = std::unique_ptr<gchar*, GStrvDeleter>;

struct GErrorDeleter {
    void operator()(GError* error) const { g_error_free(error); }
};

using GErrorPointer = std::unique_ptr<GError, GErrorDeleter>;

struct GKeyFileDeleter {
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
};

/// Holds one reference to a key file.
using GKeyFilePointer = std::unique_ptr<GKeyFile, GKeyFileDeleter>;

struct GDirDeleter {
    void operator()(GDir* directory) const { g_dir_close(directory); }
};

using GDirPointer = std::unique_ptr<GDir, GDirDeleter>;

} // namespace quorvantel::platform
