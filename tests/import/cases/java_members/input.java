package sample.grids;

import java.util.List;

/** A grid. */
public class Grid<T> extends Base implements Drawable {
    private final int width = 3;
    private Runnable later = new Runnable() {
        public void run() { draw(0, 0); }
    };

    static { System.out.println("no procedure"); }

    // Makes an empty one.
    public Grid(int width /* columns */,
                int height) throws IOException {
        this.width = width;
    }

    /**
     * Draws.
     */
    @Override
    public <K extends Comparable<K>> void draw(final List<? super T> cells, int... places) {
        class Local { void inner() { } }
    }

    // Not this comment: a blank line follows.

    int[] size() { return new int[] {1, 2}; } int depth() { return 1; }

    abstract void shape(int x);
    native int code();

    interface Shape {
        int area();
        default boolean isEmpty() { return area() == 0; }
    }

    enum Colour {
        RED(1) {
            @Override int code() { return 1; }
        },
        GREEN(2);

        private final int number;
        Colour(int number) { this.number = number; }
        int code() { return number; }
    }

    record Point(int x, int y) {
        Point {
            if (x < 0) throw new IllegalArgumentException();
        }
        Point(int both) { this(both, both); }
        double length() { return Math.sqrt(x * x + y * y); }
    }

    @interface Marked {
        String value() default "{";
    }
}

class Second {
    void draw() { }
}
