using System;

namespace Units
{
    /// <summary>A temperature, kept in kelvin.</summary>
    public readonly struct Temperature
    {
        private readonly double kelvin;

        private Temperature(double kelvin)
        {
            this.kelvin = kelvin;
        }

        // Author: Yuki Tanaka
        // Keywords: temperature, unit
        public static Temperature FromCelsius(double degrees)
        {
            if (degrees < -273.15) throw new ArgumentOutOfRangeException(nameof(degrees));
            return new Temperature(degrees + 273.15);
        }

        public double Fahrenheit
        {
            get { return (kelvin - 273.15) * 9 / 5 + 32; }
        }

        public override string ToString()
        {
            return $"{kelvin:0.0} K";
        }
    }
}
