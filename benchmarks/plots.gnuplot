# SPDX-License-Identifier: MIT
#
# The plots of docs/performance.md, from the folder `data` into the folder `out`. They stand on white, so that they can be
# read on a dark page too.
set datafile separator tab
set datafile missing "?"
set key autotitle columnhead
set encoding utf8
set grid ytics linecolor rgb "#dddddd" linewidth 1 linetype 1
set border 3 linecolor rgb "#333333"
set tics nomirror textcolor rgb "#222222"
set format y "10^{%T}"

library = "#0b5fa5"
other = "#3f93d2"
third = "#86bde8"
ground = "#8a8a8a"
composition = "#c0392b"
first_peer = "#d98200"
second_peer = "#2e8b57"

# Bars for each row: library, floor, QSettings, KConfig.
set terminal svg size 900,460 dynamic background rgb "white" font "sans-serif,13"
set style data histogram
set style histogram clustered gap 1.2
set style fill solid 1.0 noborder
set boxwidth 0.95
set key top left horizontal textcolor rgb "#222222"
set logscale y
set ylabel "nanoseconds for each" textcolor rgb "#222222"
set xtics rotate by -30 left
set rmargin 8

set output out."/typed-access.svg"
set yrange [5:3000]
plot data."/typed-access.dat" using 2:xtic(1) linecolor rgb library, "" using 3 linecolor rgb ground, \
    "" using 4 linecolor rgb first_peer, "" using 5 linecolor rgb second_peer

set output out."/storage.svg"
set terminal svg size 900,400 dynamic background rgb "white" font "sans-serif,13"
unset xtics
set xtics norotate center
set yrange [1000:10000000]
plot data."/storage.dat" using 2:xtic(1) linecolor rgb library, "" using 3 linecolor rgb ground, \
    "" using 4 linecolor rgb first_peer, "" using 5 linecolor rgb second_peer

# Lines over the size of a folder, on the disk and in memory.
set terminal svg size 900,430 dynamic background rgb "white" font "sans-serif,13"
set style data linespoints
set logscale x
set format x "10^{%T}"
unset xtics
set xtics
set key top left vertical
set rmargin 3
set ylabel "microseconds for each name" textcolor rgb "#222222"

set output out."/folder-size.svg"
set multiplot layout 1,2
set xrange [800:1300000]
set yrange [50:10000000]
set xlabel "entries in the folder" textcolor rgb "#222222"
do for [place in "disk tmpfs"] {
    set title place textcolor rgb "#222222"
    plot data."/folder-size-".place.".dat" using 1:($5/1000) title "composition with Qt" linecolor rgb composition pointtype 9 linewidth 2, \
        "" using 1:($2/1000) title "library: recording" linecolor rgb library pointtype 7 linewidth 2, \
        "" using 1:($3/1000) title "library: freeze frame" linecolor rgb other pointtype 7 linewidth 2, \
        "" using 1:($4/1000) title "library: stabilized clip" linecolor rgb third pointtype 7 linewidth 2, \
        "" using 1:($6/1000) title "floor: bare pass" linecolor rgb ground pointtype 5 linewidth 2 dashtype 2
}
unset multiplot

set output out."/freeze-frames.svg"
set multiplot layout 1,2
set xrange [400:65000]
set yrange [30:10000000]
set xlabel "numbers taken" textcolor rgb "#222222"
do for [place in "disk tmpfs"] {
    set title place textcolor rgb "#222222"
    plot data."/freeze-frames-".place.".dat" using 1:($4/1000) title "KFileUtils::suggestName" linecolor rgb second_peer pointtype 9 linewidth 2, \
        "" using 1:($5/1000) title "probing with QFile::exists" linecolor rgb first_peer pointtype 9 linewidth 2, \
        "" using 1:($2/1000) title "library" linecolor rgb library pointtype 7 linewidth 2, \
        "" using 1:($3/1000) title "floor: bare pass" linecolor rgb ground pointtype 5 linewidth 2 dashtype 2
}
unset multiplot
