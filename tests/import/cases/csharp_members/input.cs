using System;

namespace Sample.Grids
{
    /// <summary>A grid.</summary>
    [Serializable]
    public class Grid<T> : Base, IDrawable where T : class
    {
        private int width;
        public int Height { get; set; }
        public event EventHandler Changed;

        // Makes one.
        public Grid(int width /* columns */,
                    int height) : base(width)
        {
            this.width = width;
        }

        ~Grid()
        {
            Free();
        }

        /// <summary>Draws.</summary>
        [Obsolete("{")]
        public void Draw<K>(K key, int x = 1) where K : struct
        {
            void Local() { }
        }

        void IDrawable.Draw(int x) => Draw(x, 1);

        public static Grid<T> operator +(Grid<T> a, Grid<T> b)
        {
            return a;
        }

        public static implicit operator int(Grid<T> grid)
        {
            return grid.width;
        }

        public T this[int row, int column]
        {
            get { return cells[row, column]; }
        }

        /* The width. */
        public int Width
        {
            get { return width; }
            set
            {
                width = value;
            }
        }

        public int Area => width * Height;

        public event EventHandler Moved
        {
            add { moved += value; }
            remove { moved -= value; }
        }

        public abstract void Shape(int x);

        struct Cell
        {
            public int Value()
            {
                return 1;
            }
        }

        interface IShape
        {
            int Area();
        }

        record Point(int X, int Y)
        {
            public int Sum()
            {
                return X + Y;
            }
        }
    }

    enum Colour { Red, Green }
}
