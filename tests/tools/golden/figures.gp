set terminal svg size 800,600 font 'Helvetica,14' background rgb 'white' noenhanced
set output 'overview.svg'
set encoding utf8
set datafile separator "\t"
set label 'Explained and predicted by component' at screen 0.1125,0.955 left font ',17'
set xlabel 'components'
set ylabel 'share, cumulative'
set lmargin at screen 0.1125
set rmargin at screen 0.96875
set tmargin at screen 0.8666667
set bmargin at screen 0.125
set xrange [0.4:2.6]
set yrange [0:1]
set key at screen 0.985,0.91 right top horizontal
set tics nomirror out
set border 3
set xzeroaxis linetype -1 linewidth 0.5 linecolor rgb '#808080'
set xtics scale 0 ('1' 1, '2' 2)
set boxwidth 0.2666667 absolute
set style fill solid 1.0 border linecolor rgb 'black'
$bars1 << EOD
0.7333333	0.5373119	"1"
1.733333	0.8329015	"2"
EOD
$bars2 << EOD
1	0.710272	"1"
2	0.9011663	"2"
EOD
$bars3 << EOD
1.266667	0.4450414	"1"
2.266667	0.6607969	"2"
EOD
plot $bars1 using 1:2 with boxes linecolor rgb '#1F4E79' title 'R2X(cum)', \
     $bars1 using 1:2:3 with labels hypertext point pointtype 7 pointsize 0.2 linecolor rgb 'black' notitle, \
     $bars2 using 1:2 with boxes linecolor rgb '#8FB4D9' title 'R2Y(cum)', \
     $bars2 using 1:2:3 with labels hypertext point pointtype 7 pointsize 0.2 linecolor rgb 'black' notitle, \
     $bars3 using 1:2 with boxes linecolor rgb '#E6E6E6' title 'Q2(cum)', \
     $bars3 using 1:2:3 with labels hypertext point pointtype 7 pointsize 0.2 linecolor rgb 'black' notitle
set terminal svg size 800,600 font 'Helvetica,14' background rgb 'white' noenhanced
set output 'scores.svg'
set encoding utf8
set datafile separator "\t"
set label 'Scores' at screen 0.1125,0.955 left font ',17'
set xlabel 't[1], 54 %'
set ylabel 't[2], 30 %'
set lmargin at screen 0.1125
set rmargin at screen 0.78125
set tmargin at screen 0.8666667
set bmargin at screen 0.125
set xrange [-5.057226:5.057226]
set yrange [-3.767017:3.767017]
set key at screen 0.985,0.8666667 right top vertical
set tics nomirror out
set border 3
set xzeroaxis linetype -1 linewidth 0.5 linecolor rgb '#808080'
set yzeroaxis linetype -1 linewidth 0.5 linecolor rgb '#808080'
$line1 << EOD
4.436163	0
4.433461	0.1153219
4.425357	0.2305034
4.411862	0.345404
4.392991	0.4598838
4.368768	0.5738032
4.339223	0.6870236
4.30439	0.799407
4.264314	0.9108164
4.219042	1.021116
4.16863	1.130172
4.113139	1.23785
4.052637	1.344021
3.987197	1.448554
3.9169	1.551322
3.84183	1.652201
3.76208	1.751066
3.677746	1.847798
3.588932	1.942278
3.495744	2.034392
3.398298	2.124028
3.296712	2.211076
3.191109	2.29543
3.081618	2.376987
2.968373	2.455649
2.851511	2.531318
2.731175	2.603904
2.607511	2.673317
2.480671	2.739473
2.350808	2.802291
2.218082	2.861695
2.082653	2.917613
1.944686	2.969976
1.80435	3.018721
1.661816	3.063787
1.517257	3.105121
1.37085	3.142672
1.222772	3.176394
1.073205	3.206246
0.9223302	3.232192
0.7703317	3.2542
0.6173946	3.272243
0.4637053	3.286299
0.3094511	3.296352
0.1548199	3.302388
0	3.304401
-0.1548199	3.302388
-0.3094511	3.296352
-0.4637053	3.286299
-0.6173946	3.272243
-0.7703317	3.2542
-0.9223302	3.232192
-1.073205	3.206246
-1.222772	3.176394
-1.37085	3.142672
-1.517257	3.105121
-1.661816	3.063787
-1.80435	3.018721
-1.944686	2.969976
-2.082653	2.917613
-2.218082	2.861695
-2.350808	2.802291
-2.480671	2.739473
-2.607511	2.673317
-2.731175	2.603904
-2.851511	2.531318
-2.968373	2.455649
-3.081618	2.376987
-3.191109	2.29543
-3.296712	2.211076
-3.398298	2.124028
-3.495744	2.034392
-3.588932	1.942278
-3.677746	1.847798
-3.76208	1.751066
-3.84183	1.652201
-3.9169	1.551322
-3.987197	1.448554
-4.052637	1.344021
-4.113139	1.23785
-4.16863	1.130172
-4.219042	1.021116
-4.264314	0.9108164
-4.30439	0.799407
-4.339223	0.6870236
-4.368768	0.5738032
-4.392991	0.4598838
-4.411862	0.345404
-4.425357	0.2305034
-4.433461	0.1153219
-4.436163	0
-4.433461	-0.1153219
-4.425357	-0.2305034
-4.411862	-0.345404
-4.392991	-0.4598838
-4.368768	-0.5738032
-4.339223	-0.6870236
-4.30439	-0.799407
-4.264314	-0.9108164
-4.219042	-1.021116
-4.16863	-1.130172
-4.113139	-1.23785
-4.052637	-1.344021
-3.987197	-1.448554
-3.9169	-1.551322
-3.84183	-1.652201
-3.76208	-1.751066
-3.677746	-1.847798
-3.588932	-1.942278
-3.495744	-2.034392
-3.398298	-2.124028
-3.296712	-2.211076
-3.191109	-2.29543
-3.081618	-2.376987
-2.968373	-2.455649
-2.851511	-2.531318
-2.731175	-2.603904
-2.607511	-2.673317
-2.480671	-2.739473
-2.350808	-2.802291
-2.218082	-2.861695
-2.082653	-2.917613
-1.944686	-2.969976
-1.80435	-3.018721
-1.661816	-3.063787
-1.517257	-3.105121
-1.37085	-3.142672
-1.222772	-3.176394
-1.073205	-3.206246
-0.9223302	-3.232192
-0.7703317	-3.2542
-0.6173946	-3.272243
-0.4637053	-3.286299
-0.3094511	-3.296352
-0.1548199	-3.302388
0	-3.304401
0.1548199	-3.302388
0.3094511	-3.296352
0.4637053	-3.286299
0.6173946	-3.272243
0.7703317	-3.2542
0.9223302	-3.232192
1.073205	-3.206246
1.222772	-3.176394
1.37085	-3.142672
1.517257	-3.105121
1.661816	-3.063787
1.80435	-3.018721
1.944686	-2.969976
2.082653	-2.917613
2.218082	-2.861695
2.350808	-2.802291
2.480671	-2.739473
2.607511	-2.673317
2.731175	-2.603904
2.851511	-2.531318
2.968373	-2.455649
3.081618	-2.376987
3.191109	-2.29543
3.296712	-2.211076
3.398298	-2.124028
3.495744	-2.034392
3.588932	-1.942278
3.677746	-1.847798
3.76208	-1.751066
3.84183	-1.652201
3.9169	-1.551322
3.987197	-1.448554
4.052637	-1.344021
4.113139	-1.23785
4.16863	-1.130172
4.219042	-1.021116
4.264314	-0.9108164
4.30439	-0.799407
4.339223	-0.6870236
4.368768	-0.5738032
4.392991	-0.4598838
4.411862	-0.345404
4.425357	-0.2305034
4.433461	-0.1153219
4.436163	0
EOD
$points2 << EOD
1.775416	-2.017791	"EOD"
EOD
$points3 << EOD
-0.5970913	0.1032612	"a’ ’b’,’”"
EOD
$points4 << EOD
-0.2487875	1.119727	"\\n\\x27 $(touch made) \\"
0.9541714	-0.1199795	"another of so many chars"
-2.641704	-0.7245151	"eight"
EOD
$points5 << EOD
0.6933451	1.280867	"</title><script>a()"
-0.5974893	-0.9296725	"é ü"
-1.052766	0.5009071	"6"
1.717861	0.6665622	"nine"
EOD
$names6 << EOD
1.775416	-2.017791	"EOD"
-2.641704	-0.7245151	"eight"
1.717861	0.6665622	"nine"
0.6933451	1.280867	"</title><script>a()"
-0.5974893	-0.9296725	"é ü"
-1.052766	0.5009071	"6"
0.9541714	-0.1199795	"another of so many chars"
-0.5970913	0.1032612	"a’ ’b’,’”"
EOD
$names7 << EOD
-0.2487875	1.119727	"\\n\\x27 $(touch made) \\"
EOD
plot $line1 using 1:2 with lines dashtype 2 linewidth 1.5 linecolor rgb 'black' title '95 % (T2)', \
     $points2 using 1:2:3 with labels hypertext point pointtype 6 pointsize 0.7 linecolor rgb '#0072B2' title 'no class', \
     $points3 using 1:2:3 with labels hypertext point pointtype 4 pointsize 0.7 linecolor rgb '#D55E00' title 'x''`touch made`?se…', \
     $points4 using 1:2:3 with labels hypertext point pointtype 8 pointsize 0.7 linecolor rgb '#009E73' title 'y', \
     $points5 using 1:2:3 with labels hypertext point pointtype 12 pointsize 0.7 linecolor rgb '#8E3A80' title 'z', \
     $names6 using 1:2:3 with labels left offset character 0.8,0 font ',11' notitle, \
     $names7 using 1:2:3 with labels right offset character -0.8,0 font ',11' notitle
set terminal svg size 800,600 font 'Helvetica,14' background rgb 'white' noenhanced
set output 'loadings.svg'
set encoding utf8
set datafile separator "\t"
set label 'Loadings' at screen 0.1125,0.955 left font ',17'
set xlabel 'w*c[2], 30 %'
set ylabel 'w*c[1], 54 %'
set lmargin at screen 0.1125
set rmargin at screen 0.96875
set tmargin at screen 0.8666667
set bmargin at screen 0.125
set xrange [-0.8344824:0.6725986]
set yrange [-0.1020377:0.6530651]
set key at screen 0.985,0.91 right top horizontal
set tics nomirror out
set border 3
set xzeroaxis linetype -1 linewidth 0.5 linecolor rgb '#808080'
set yzeroaxis linetype -1 linewidth 0.5 linecolor rgb '#808080'
$points1 << EOD
0.5800585	0.5987645	"it’s `touch made`"
-0.3142266	0.5207098	"b% \\"
-0.7419423	-0.0556717	"c ”q” <x>&"
-0.170134	0.6066991	"twenty-three characters"
EOD
$points2 << EOD
0.4721722	0.5771771	"y"
-0.3361474	0.5725939	"y, 2"
EOD
$names3 << EOD
0.4721722	0.5771771	"y"
-0.3361474	0.5725939	"y, 2"
-0.7419423	-0.0556717	"c ”q” <x>&"
-0.170134	0.6066991	"twenty-three characters"
-0.3142266	0.5207098	"b% \\"
EOD
plot $points1 using 1:2:3 with labels hypertext point pointtype 6 pointsize 0.7 linecolor rgb '#0072B2' title 'X, w*', \
     $points2 using 1:2:3 with labels hypertext point pointtype 4 pointsize 0.7 linecolor rgb '#D55E00' title 'Y, c', \
     $names3 using 1:2:3 with labels left offset character 0.8,0 font ',11' notitle
set terminal svg size 800,600 font 'Helvetica,14' background rgb 'white' noenhanced
set output 'distances.svg'
set encoding utf8
set datafile separator "\t"
set label 'Distances to the model' at screen 0.1125,0.955 left font ',17'
set xlabel 'observation'
set ylabel 'DModX[2]'
set lmargin at screen 0.1125
set rmargin at screen 0.78125
set tmargin at screen 0.8666667
set bmargin at screen 0.125
set xrange [0.44:9.56]
set yrange [0:2.596479]
set key at screen 0.985,0.8666667 right top vertical
set tics nomirror out
set border 3
$line1 << EOD
1	2.426615
9	2.426615
EOD
$points2 << EOD
5	0.7340364	"EOD"
EOD
$points3 << EOD
1	0.7869	"a’ ’b’,’”"
EOD
$points4 << EOD
2	1.171692	"\\n\\x27 $(touch made) \\"
7	0.8572982	"another of so many chars"
8	0.2576063	"eight"
EOD
$points5 << EOD
3	1.399239	"</title><script>a()"
4	1.313185	"é ü"
6	0.9327045	"6"
9	0.8561602	"nine"
EOD
plot $line1 using 1:2 with lines dashtype 2 linewidth 1.5 linecolor rgb 'black' title '95 %: 2.427', \
     $points2 using 1:2:3 with labels hypertext point pointtype 6 pointsize 0.7 linecolor rgb '#0072B2' title 'no class', \
     $points3 using 1:2:3 with labels hypertext point pointtype 4 pointsize 0.7 linecolor rgb '#D55E00' title 'x''`touch made`?se…', \
     $points4 using 1:2:3 with labels hypertext point pointtype 8 pointsize 0.7 linecolor rgb '#009E73' title 'y', \
     $points5 using 1:2:3 with labels hypertext point pointtype 12 pointsize 0.7 linecolor rgb '#8E3A80' title 'z'
set terminal svg size 800,600 font 'Helvetica,14' background rgb 'white' noenhanced
set output 't2.svg'
set encoding utf8
set datafile separator "\t"
set label 'Hotelling''s T2' at screen 0.1125,0.955 left font ',17'
set xlabel 'observation'
set ylabel 'Tsquare[2]'
set lmargin at screen 0.1125
set rmargin at screen 0.78125
set tmargin at screen 0.8666667
set bmargin at screen 0.125
set xrange [0.44:9.56]
set yrange [0:23.34829]
set key at screen 0.985,0.8666667 right top vertical
set tics nomirror out
set border 3
$line1 << EOD
1	10.82838
9	10.82838
EOD
$line2 << EOD
1	21.82083
9	21.82083
EOD
$points3 << EOD
5	5.772062	"EOD"
EOD
$points4 << EOD
1	0.2067431	"a’ ’b’,’”"
EOD
$points5 << EOD
2	1.277432	"\\n\\x27 $(touch made) \\"
7	0.5152334	"another of so many chars"
8	4.360435	"eight"
EOD
$points6 << EOD
3	1.891508	"</title><script>a()"
4	1.053543	"é ü"
6	0.8586584	"6"
9	2.064384	"nine"
EOD
plot $line1 using 1:2 with lines dashtype 2 linewidth 1.5 linecolor rgb 'black' title '95 %: 10.83', \
     $line2 using 1:2 with lines dashtype 4 linewidth 1.5 linecolor rgb 'black' title '99 %: 21.82', \
     $points3 using 1:2:3 with labels hypertext point pointtype 6 pointsize 0.7 linecolor rgb '#0072B2' title 'no class', \
     $points4 using 1:2:3 with labels hypertext point pointtype 4 pointsize 0.7 linecolor rgb '#D55E00' title 'x''`touch made`?se…', \
     $points5 using 1:2:3 with labels hypertext point pointtype 8 pointsize 0.7 linecolor rgb '#009E73' title 'y', \
     $points6 using 1:2:3 with labels hypertext point pointtype 12 pointsize 0.7 linecolor rgb '#8E3A80' title 'z'
set terminal svg size 800,600 font 'Helvetica,14' background rgb 'white' noenhanced
set output 'vip.svg'
set encoding utf8
set datafile separator "\t"
set label 'Influence of the variables on all responses' at screen 0.1125,0.955 left font ',17'
set xlabel ''
set ylabel 'VIP'
set lmargin at screen 0.1125
set rmargin at screen 0.96875
set tmargin at screen 0.8666667
set bmargin at screen 0.3426667
set xrange [0.4:4.6]
set yrange [0:1.242362]
set key at screen 0.985,0.91 right top horizontal
set tics nomirror out
set border 3
set xzeroaxis linetype -1 linewidth 0.5 linecolor rgb '#808080'
set xtics scale 0 rotate by 90 right ('it''s `touch made`' 1, 'twenty-three characters' 2, 'b%% \' 3, 'c "q" <x>&' 4)
set boxwidth 0.8 absolute
set style fill solid 1.0 border linecolor rgb 'black'
$bars1 << EOD
1	1.161086	"it’s `touch made`"
2	1.099793	"twenty-three characters"
3	0.987133	"b% \\"
4	0.684035	"c ”q” <x>&"
EOD
$line2 << EOD
0.5	1
4.5	1
EOD
plot $bars1 using 1:2 with boxes linecolor rgb '#1F4E79' notitle, \
     $bars1 using 1:2:3 with labels hypertext point pointtype 7 pointsize 0.2 linecolor rgb 'black' notitle, \
     $line2 using 1:2 with lines dashtype 2 linewidth 1.5 linecolor rgb 'black' title 'the average, 1'
set terminal svg size 800,600 font 'Helvetica,14' background rgb 'white' noenhanced
set output 'coefficients.svg'
set encoding utf8
set datafile separator "\t"
set label 'Coefficients for y, centred and scaled' at screen 0.1125,0.955 left font ',17'
set xlabel ''
set ylabel 'CoeffCS, 2 comp.'
set lmargin at screen 0.1125
set rmargin at screen 0.96875
set tmargin at screen 0.8666667
set bmargin at screen 0.3426667
set xrange [0.4:4.6]
set yrange [-0.4525142:0.6895531]
set key at screen 0.985,0.91 right top horizontal
set tics nomirror out
set border 3
set xzeroaxis linetype -1 linewidth 0.5 linecolor rgb '#808080'
set xtics scale 0 rotate by 90 right ('it''s `touch made`' 1, 'twenty-three characters' 2, 'b%% \' 3, 'c "q" <x>&' 4)
set boxwidth 0.8 absolute
set style fill solid 1.0 border linecolor rgb 'black'
$bars1 << EOD
1	0.6194262	"it’s `touch made`"
2	0.2698563	"twenty-three characters"
3	0.1522022	"b% \\"
4	-0.3823873	"c ”q” <x>&"
EOD
plot $bars1 using 1:2 with boxes linecolor rgb '#1F4E79' notitle, \
     $bars1 using 1:2:3 with labels hypertext point pointtype 7 pointsize 0.2 linecolor rgb 'black' notitle
set terminal svg size 800,600 font 'Helvetica,14' background rgb 'white' noenhanced
set output 'predicted.svg'
set encoding utf8
set datafile separator "\t"
set label 'y, 2: RMSEE = 4.139' at screen 0.1125,0.955 left font ',17'
set xlabel 'observed'
set ylabel 'predicted'
set lmargin at screen 0.1125
set rmargin at screen 0.78125
set tmargin at screen 0.8666667
set bmargin at screen 0.125
set xrange [0.76:37.24]
set yrange [0.76:37.24]
set key at screen 0.985,0.8666667 right top vertical
set tics nomirror out
set border 3
$line1 << EOD
3	3
35	35
EOD
$points2 << EOD
35	31.42678	"EOD"
EOD
$points3 << EOD
10	11.80827	"a’ ’b’,’”"
EOD
$points4 << EOD
12	10.46109	"\\n\\x27 $(touch made) \\"
18	20.93137	"another of so many chars"
3	3.355772	"eight"
EOD
$points5 << EOD
11	15.09455	"é ü"
14	8.071238	"6"
20	22.56878	"nine"
EOD
$names6 << EOD
14	8.071238	"6"
11	15.09455	"é ü"
35	31.42678	"EOD"
18	20.93137	"another of so many chars"
20	22.56878	"nine"
10	11.80827	"a’ ’b’,’”"
12	10.46109	"\\n\\x27 $(touch made) \\"
3	3.355772	"eight"
EOD
plot $line1 using 1:2 with lines dashtype 2 linewidth 1.5 linecolor rgb 'black' title '1:1', \
     $points2 using 1:2:3 with labels hypertext point pointtype 6 pointsize 0.7 linecolor rgb '#0072B2' title 'no class', \
     $points3 using 1:2:3 with labels hypertext point pointtype 4 pointsize 0.7 linecolor rgb '#D55E00' title 'x''`touch made`?se…', \
     $points4 using 1:2:3 with labels hypertext point pointtype 8 pointsize 0.7 linecolor rgb '#009E73' title 'y', \
     $points5 using 1:2:3 with labels hypertext point pointtype 12 pointsize 0.7 linecolor rgb '#8E3A80' title 'z', \
     $names6 using 1:2:3 with labels left offset character 0.8,0 font ',11' notitle
set terminal svg size 800,600 font 'Helvetica,14' background rgb 'white' noenhanced
set output 'contributions.svg'
set encoding utf8
set datafile separator "\t"
set label 'What makes the score of é ü' at screen 0.1125,0.955 left font ',17'
set xlabel ''
set ylabel 'contribution to t[2], 30 %'
set lmargin at screen 0.1125
set rmargin at screen 0.96875
set tmargin at screen 0.8666667
set bmargin at screen 0.3426667
set xrange [0.4:4.6]
set yrange [-1.093172:0.2582492]
set key at screen 0.985,0.91 right top horizontal
set tics nomirror out
set border 3
set xzeroaxis linetype -1 linewidth 0.5 linecolor rgb '#808080'
set xtics scale 0 rotate by 90 right ('it''s `touch made`' 1, 'b%% \' 2, 'c "q" <x>&' 3, 'twenty-three characters' 4)
set boxwidth 0.8 absolute
set style fill solid 1.0 border linecolor rgb 'black'
$bars1 << EOD
1	-0.1237815	"it’s `touch made`"
2	0.1752672	"b% \\"
3	-1.01019	"c ”q” <x>&"
4	0.0290884	"twenty-three characters"
EOD
plot $bars1 using 1:2 with boxes linecolor rgb '#1F4E79' notitle, \
     $bars1 using 1:2:3 with labels hypertext point pointtype 7 pointsize 0.2 linecolor rgb 'black' notitle
set terminal svg size 800,600 font 'Helvetica,14' background rgb 'white' noenhanced
set output 'scores.svg'
set encoding utf8
set datafile separator "\t"
set label 'Scores' at screen 0.1125,0.955 left font ',17'
set xlabel 'observation'
set ylabel 't[1], 55 %'
set lmargin at screen 0.1125
set rmargin at screen 0.78125
set tmargin at screen 0.8666667
set bmargin at screen 0.125
set xrange [0.44:9.56]
set yrange [-3.61766:3.61766]
set key at screen 0.985,0.8666667 right top vertical
set tics nomirror out
set border 3
$line1 << EOD
1	3.173386
9	3.173386

1	-3.173386
9	-3.173386
EOD
$points2 << EOD
5	2.277651	"EOD"
EOD
$points3 << EOD
1	-0.6568744	"a’ ’b’,’”"
EOD
$points4 << EOD
2	-0.6183069	"\\n\\x27 $(touch made) \\"
7	0.9774676	"another of so many chars"
8	-2.412517	"eight"
EOD
$points5 << EOD
3	0.3641723	"</title><script>a()"
4	-0.2345468	"é ü"
6	-1.243829	"6"
9	1.5912	"nine"
EOD
$names6 << EOD
8	-2.412517	"eight"
5	2.277651	"EOD"
6	-1.243829	"6"
2	-0.6183069	"\\n\\x27 $(touch made) \\"
3	0.3641723	"</title><script>a()"
4	-0.2345468	"é ü"
EOD
$names7 << EOD
9	1.5912	"nine"
7	0.9774676	"another of so many chars"
EOD
$names8 << EOD
1	-0.6568744	"a’ ’b’,’”"
EOD
plot $line1 using 1:2 with lines dashtype 2 linewidth 1.5 linecolor rgb 'black' title '95 % (T2)', \
     $points2 using 1:2:3 with labels hypertext point pointtype 6 pointsize 0.7 linecolor rgb '#0072B2' title 'no class', \
     $points3 using 1:2:3 with labels hypertext point pointtype 4 pointsize 0.7 linecolor rgb '#D55E00' title 'x''`touch made`?se…', \
     $points4 using 1:2:3 with labels hypertext point pointtype 8 pointsize 0.7 linecolor rgb '#009E73' title 'y', \
     $points5 using 1:2:3 with labels hypertext point pointtype 12 pointsize 0.7 linecolor rgb '#8E3A80' title 'z', \
     $names6 using 1:2:3 with labels left offset character 0.8,0 font ',11' notitle, \
     $names7 using 1:2:3 with labels right offset character -0.8,0 font ',11' notitle, \
     $names8 using 1:2:3 with labels center offset character 0,0.7 font ',11' notitle
set terminal svg size 800,600 font 'Helvetica,14' background rgb 'white' noenhanced
set output 'loadings.svg'
set encoding utf8
set datafile separator "\t"
set label 'Loadings' at screen 0.1125,0.955 left font ',17'
set xlabel ''
set ylabel 'p[1], 55 %'
set lmargin at screen 0.1125
set rmargin at screen 0.96875
set tmargin at screen 0.8666667
set bmargin at screen 0.3426667
set xrange [0.4:4.6]
set yrange [0:0.6758817]
set key at screen 0.985,0.91 right top horizontal
set tics nomirror out
set border 3
set xzeroaxis linetype -1 linewidth 0.5 linecolor rgb '#808080'
set xtics scale 0 rotate by 90 right ('it''s `touch made`' 1, 'b%% \' 2, 'c "q" <x>&' 3, 'twenty-three characters' 4)
set boxwidth 0.8 absolute
set style fill solid 1.0 border linecolor rgb 'black'
$bars1 << EOD
1	0.493803	"it’s `touch made`"
2	0.5583159	"b% \\"
3	0.213169	"c ”q” <x>&"
4	0.6316652	"twenty-three characters"
EOD
plot $bars1 using 1:2 with boxes linecolor rgb '#1F4E79' notitle, \
     $bars1 using 1:2:3 with labels hypertext point pointtype 7 pointsize 0.2 linecolor rgb 'black' notitle

$names3 << EOD
0.008340762	0.1037421	"y1"
-0.01092695	0.07788607	"nm1130"
0.07357176	-0.01392407	"nm1378"
0.03566613	0.06442616	"nm1406"
-0.01452664	0.06875011	"nm1126"
0.01243195	0.06831223	"nm1764"
0.06785721	0.005836139	"nm1388"
-0.01509518	0.06251709	"nm1122"
0.01476675	0.06069107	"nm1760"
-0.01621095	0.05372708	"nm1120"
0.01589187	0.05037137	"nm1756"
0.01654316	0.04463238	"nm1754"
-0.0165731	0.04356035	"nm1114"
0.02958659	-0.03067744	"nm1726"
0.0183728	0.03600119	"nm1228"
-0.01550458	0.03409082	"nm1110"
0.02893395	-0.02301901	"nm1246"
0.02158332	0.02462811	"nm1748"
0.02785084	-0.01476987	"nm1736"
-0.01575019	0.02653636	"nm1102"
0.02678908	-0.008580223	"nm1240"
0.02326587	0.01249687	"nm1234"
0.02603376	-0.001792757	"nm1238"
EOD
$names4 << EOD
-0.008426978	0.09688245	"nm1146"
-0.01343354	0.08403997	"nm1132"
0.01538306	0.08330461	"nm1422"
-0.01527591	0.07617866	"nm1128"
0.009286699	0.06788336	"nm1218"
0.06832	-0.004566225	"nm1824"
-0.01477167	0.06578434	"nm1124"
0.06430157	0.008055236	"nm1818"
0.06215401	-0.0182112	"nm1900"
0.04635703	0.04435948	"nm1804"
0.01096214	0.06256056	"nm1220"
0.04988313	0.03860535	"nm1806"
0.05872729	0.02113141	"nm1812"
0.05600461	0.02754831	"nm1810"
0.01267273	0.05710699	"nm1222"
0.03130809	-0.04549481	"nm1280"
0.01424649	0.05104859	"nm1224"
0.03077397	-0.03961283	"nm1260"
0.01614854	0.04315067	"nm1226"
0.0293073	-0.02968155	"nm1250"
-0.01574554	0.03848438	"nm1112"
0.01861447	0.03253428	"nm1750"
0.02802113	-0.02157409	"nm1732"
0.02773831	-0.01453296	"nm1242"
0.02181851	0.02008075	"nm1232"
0.02590046	-0.00899171	"nm1738"
0.02263554	0.01051879	"nm1744"
0.02444221	0.004899266	"nm1236"
EOD
$names5 << EOD
0.06492451	-0.04873808	"y2"
-0.005600288	0.0979377	"nm1156"
0.05882839	-0.05058512	"nm1324"
0.05030787	-0.04955193	"nm1648"
0.06343437	-0.01720244	"nm1898"
0.04271567	-0.04758534	"nm1658"
EOD
$names6 << EOD
0.07889744	-0.04955603	"nm1336"
0.07101835	-0.05258432	"nm1330"
0.06277067	-0.05179177	"nm1326"
0.05449162	-0.0516048	"nm1322"
0.04728269	-0.05021579	"nm1318"
0.04016106	-0.04765199	"nm1664"
0.03276743	-0.04599635	"nm1300"
-0.0165659	0.02539805	"nm1100"
EOD
plot $points1 using 1:2:3 with labels hypertext point pointtype 6 pointsize 0.7 linecolor rgb '#0072B2' title 'X, w*', \
     $points2 using 1:2:3 with labels hypertext point pointtype 4 pointsize 0.7 linecolor rgb '#D55E00' title 'Y, c', \
     $names3 using 1:2:3 with labels left offset character 0.8,0 font ',11' notitle, \
     $names4 using 1:2:3 with labels right offset character -0.8,0 font ',11' notitle, \
     $names5 using 1:2:3 with labels center offset character 0,0.7 font ',11' notitle, \
     $names6 using 1:2:3 with labels center offset character 0,-0.7 font ',11' notitle
