"""A GTK 4 text view that writes what it holds into the file that is named, at every change."""
import sys

import gi

gi.require_version("Gtk", "4.0")
from gi.repository import Gio, GLib, Gtk


def write(buffer):
    text = buffer.get_text(buffer.get_start_iter(), buffer.get_end_iter(), True)
    with open(sys.argv[1], "w", encoding="utf-8") as file:
        file.write(text)


def activate(application):
    window = Gtk.ApplicationWindow(application=application, default_width=400, default_height=300)
    view = Gtk.TextView()
    view.get_buffer().connect("changed", write)
    window.set_child(view)
    window.present()
    view.grab_focus()


GLib.set_prgname("Gtk4Editor")
application = Gtk.Application(application_id="test.Gtk4Editor",
                              flags=Gio.ApplicationFlags.NON_UNIQUE)
application.connect("activate", activate)
application.run([])
