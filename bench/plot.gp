# SPDX-License-Identifier: Apache-2.0
# The plot of docs/performance.md: gnuplot -e "data='...'; picture='...'" plot.gp
set terminal svg size 860,620 font "sans-serif,13" background "white"
set output picture
set title "Nanoseconds a call, logarithmic; shorter is better"
set logscale x
set xrange [2:8000]
set grid xtics linecolor "#dddddd"
set border 1
set tics nomirror
set ytics scale 0
unset key
set style fill solid noborder
set lmargin 34
set palette maxcolors 3 defined (0 "#2a6fb0", 1 "#9fb8cc", 2 "#c9c9c9")
set cbrange [0:2]
unset colorbox
stats data using 1 nooutput
set yrange [STATS_min - 1:1]
plot data using 2:1:(2):2:($1 - 0.4):($1 + 0.4):3:ytic(4) with boxxyerror palette, \
     data using 2:1:(sprintf("%.3g", $2)) with labels left offset 0.5,0
