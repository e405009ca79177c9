class Narrow { void Inside() { } }
class Wide
{
    int A() { return 1; } int B() { return 2; }

    int C() { return 3; } // behind it

    /* in front */ int D() { return 4; }

    // A comment
    // of two lines.
    int E() { return 5; }   
    int F() { return 6; }
}
