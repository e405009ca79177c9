class A {
    void first() { int x = 1; }
    void second( { }
    void third() { String s = "not closed; }
    void fourth() { }
}
}
void fifth() { }
class B { int last() { return é; } }
