# Time against the number of contacts. The points come from bench/table.py, in seconds.
set terminal pngcairo size 900,600 font "DejaVu Sans,11"
set logscale xy
set xlabel "contacts"
set ylabel "time of one call"
set xrange [80:130000]
set format x "%.0s%c"
set format y "%.0s %cs"
set grid
set key left top
set style data linespoints
points(name) = folder . "/" . name . ".points"
plot points("save") using 1:2 lw 2 pt 7 lc rgb "#1b6ca8" title "save", \
     points("save") using 1:3 lw 1 dt 2 pt 6 lc rgb "#1b6ca8" title "save, bare XML calls", \
     points("load") using 1:2 lw 2 pt 7 lc rgb "#b8442c" title "load", \
     points("load_any_order") using 1:2 lw 2 pt 5 lc rgb "#d99a2b" title "load, file in any order", \
     points("load") using 1:3 lw 1 dt 2 pt 6 lc rgb "#b8442c" title "load, bare XML calls", \
     points("lookup") using 1:2 lw 2 pt 7 lc rgb "#2f7d4f" title "lookup by number, miss", \
     points("lookup") using 1:3 lw 1 dt 2 pt 6 lc rgb "#2f7d4f" title "lookup, index of SQLite in memory"
