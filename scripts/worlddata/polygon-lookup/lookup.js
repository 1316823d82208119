// Reads a JSON array of [latitude, longitude] pairs on standard input and
// writes a JSON array with, for each pair, the tz zones whose boundary
// polygons (geo-tz's comprehensive data set) contain the point, sorted.
"use strict";
const geoTz = require("geo-tz/all");

geoTz.preCache();
const points = JSON.parse(require("fs").readFileSync(0, "utf8"));
const zones = points.map(([lat, lon]) => geoTz.find(lat, lon).slice().sort());
process.stdout.write(JSON.stringify(zones));
