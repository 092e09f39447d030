-- Every column League Race Standings knows: the default ones and the adjustment last.
INSERT INTO report_columns (report_nmbr, column_nmbr, column_order) VALUES (6, 35, 8);
