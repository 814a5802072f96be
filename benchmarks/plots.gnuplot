# SPDX-License-Identifier: MIT
#
# The plots of docs/performance.md, from the folder `data` into the folder `out`. They stand on white, so that they can be
# read on a dark page too.
set datafile separator tab
set datafile missing "?"
set encoding utf8
set grid ytics linecolor rgb "#dddddd" linewidth 1 linetype 1
set border 3 linecolor rgb "#333333"
set tics nomirror textcolor rgb "#222222"
set logscale y
times = '"1 ns" 1, "10 ns" 10, "100 ns" 1e2, "1 µs" 1e3, "10 µs" 1e4, "100 µs" 1e5, "1 ms" 1e6, "10 ms" 1e7, "100 ms" 1e8, "1 s" 1e9, "10 s" 1e10'
eval "set ytics (".times.")"

library = "#0b5fa5"
other = "#3f93d2"
third = "#86bde8"
ground = "#8a8a8a"
composition = "#c0392b"
first_peer = "#d98200"
second_peer = "#2e8b57"

# Bars for each row: library, floor, QSettings, KConfig.
set style data histogram
set style histogram clustered gap 1
set style fill solid 1.0 noborder
set boxwidth 0.9
set key above horizontal textcolor rgb "#222222"

set xtics font "sans-serif,11" nomirror
set bmargin 5
set xrange [-0.7:14.7]
set terminal svg size 1160,430 dynamic background rgb "white" font "sans-serif,13"
set output out."/typed-access.svg"
set yrange [5:2000]
plot data."/typed-access.dat" using 2:xtic(1) title "library" linecolor rgb library, \
    "" using 3 title "floor" linecolor rgb ground, \
    "" using 4 title "QSettings" linecolor rgb first_peer, \
    "" using 5 title "KConfig" linecolor rgb second_peer

set terminal svg size 760,430 dynamic background rgb "white" font "sans-serif,13"
set output out."/storage.svg"
set xrange [-0.7:3.7]
set yrange [1e3:1e7]
plot data."/storage.dat" using 2:xtic(1) title "library" linecolor rgb library, \
    "" using 3 title "floor" linecolor rgb ground, \
    "" using 4 title "QSettings" linecolor rgb first_peer, \
    "" using 5 title "KConfig" linecolor rgb second_peer

# Lines over the size of a folder, on the disk and in memory.
set terminal svg size 980,440 dynamic background rgb "white" font "sans-serif,13"
set style data linespoints
set xtics font "sans-serif,13"
unset bmargin
set style line 1 linewidth 2 pointsize 0.7
set logscale x
set xtics ("100" 100, "1,000" 1e3, "10,000" 1e4, "100,000" 1e5, "1,000,000" 1e6)
set key bottom right inside vertical textcolor rgb "#222222" samplen 2
set rmargin 4

set output out."/folder-size.svg"
set multiplot layout 1,2
set xrange [800:1300000]
set yrange [1e4:1e10]
do for [place in "disk tmpfs"] {
    set title "a new name, folder on ".place textcolor rgb "#222222"
    set xlabel "entries in the folder" textcolor rgb "#222222"
    plot data."/folder-size-".place.".dat" using 1:5 title "composition with Qt" linestyle 1 linecolor rgb composition pointtype 9, \
        "" using 1:2 title "library: recording" linestyle 1 linecolor rgb library pointtype 7, \
        "" using 1:3 title "library: freeze frame" linestyle 1 linecolor rgb other pointtype 7, \
        "" using 1:4 title "library: stabilized clip" linestyle 1 linecolor rgb third pointtype 7, \
        "" using 1:6 title "floor: bare pass" linestyle 1 linecolor rgb ground pointtype 5
}
unset multiplot

set output out."/freeze-frames.svg"
set multiplot layout 1,2
set xrange [400:65000]
set xtics ("500" 500, "5,000" 5e3, "50,000" 5e4)
do for [place in "disk tmpfs"] {
    set title "a free name, folder on ".place textcolor rgb "#222222"
    set xlabel "numbers taken" textcolor rgb "#222222"
    plot data."/freeze-frames-".place.".dat" using 1:4 title "KFileUtils::suggestName" linestyle 1 linecolor rgb second_peer pointtype 9, \
        "" using 1:5 title "probing with QFile::exists" linestyle 1 linecolor rgb first_peer pointtype 9, \
        "" using 1:2 title "library" linestyle 1 linecolor rgb library pointtype 7, \
        "" using 1:3 title "floor: bare pass" linestyle 1 linecolor rgb ground pointtype 5
}
unset multiplot
