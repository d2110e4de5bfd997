// Qt loads its JPEG reader as a plug-in, over whose thread-local memory the leak checker crashes on Debian 12. It is
// told to leave that memory alone, and what the dynamic loader, GLib and the encoder x265 keep of their own. Without
// the checker nobody calls these.

extern "C" const char *__lsan_default_options()
{
    return "use_tls=0:print_suppressions=0";
}

extern "C" const char *__lsan_default_suppressions()
{
    return "leak:ld-linux\nleak:libglib\nleak:libx265\n";
}
