// Author: Lena Vogt
// Created: 2006-02-18
// Keywords: star, angle
function toRadians(degrees) {
    return degrees * Math.PI / 180;
}

const sky = {
    stars: [],

    // Hour angle in hours, declination in degrees.
    add(name, hours, declination) {
        this.stars.push({ name, angle: toRadians(hours * 15), declination });
    },

    brightest: function () {
        return this.stars.reduce((one, other) => (other.size > one.size ? other : one));
    }
};
