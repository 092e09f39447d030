-- Race Detail without any look of its own: no colours, no images, sizes of 1, no footer.
DELETE FROM report_attributes WHERE report_nmbr = 1;
