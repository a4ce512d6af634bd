[playlist]
NumberOfEntries=2147483647
File3=/a
