[PlayList]
numberofentries = 3
FILE2 = /b  
length2=x
File1=/a
Title3="q"
[other]
File3=/no
