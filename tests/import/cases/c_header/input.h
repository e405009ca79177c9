#ifndef GRID_H
#define GRID_H

/* The larger one. */
static inline int larger(int a, int b)
{
    return a > b ? a : b;
}

class EXPORT Grid : public QObject {
    Q_OBJECT
  public:
    Grid() { Clear(); } int Width() const { return width_; }

    // Clears all.
    //
    // Nothing is left.
    void Clear()
    {
        width_ = 0;
    }

    int Height() const { return height_; } // no bottom

  private:
    int width_;
};

inline int last(void) { return 0; }
#endif
