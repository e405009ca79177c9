#define ODD
#region Everything { in here
using System;

class Log
{
#if ODD
    void Write(string text)
#else
    void Write(object text)
#endif
    {
        Console.WriteLine($"{text} {names["}"]} #if {{");
    }

#if ODD
    void Twin()
    {
        string verbatim = @"
#if not a directive
""quoted""";
    }
#else
    void Twin()
    {
        var raw = """
            #else "" {
            """;
    }
#endif

#if false
    this is no } code { at 'all
#endif

#pragma warning disable 1591 // "
    // The last.
    void Last()
    {
#if ODD
        if (true) {
#endif
        Run();
#if ODD
        }
#endif
    }
}
#endregion
